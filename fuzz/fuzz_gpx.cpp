// Any octets: read into generated classes, written, and read again to the same objects.
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "Gpx.h"

using namespace BxXmlLib5;

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    try {
        Gpx::CGpx gpx;
        gpx.Parse({reinterpret_cast<char const*>(data), size});
        std::string const text = gpx.ToText();
        Gpx::CGpx read;
        read.Parse(text);
        // By now blanks stand for line breaks in attributes, and nothing changes any more.
        if (read.ToText() != text || !read.Equals(*read.Clone()) || !read.Validate().empty()) {
            std::fprintf(stderr, "%s\n", text.c_str());
            std::abort();
        }
    } catch (CBxException const&) {
        // Refused; or the name of a namespace holds what must be escaped, and is written as it is.
    }
    return 0;
}
