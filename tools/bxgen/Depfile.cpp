#include "Depfile.h"

namespace BxGen {

namespace {

std::string Escaped(std::string const& name) {
    std::string escaped;
    for (char const c : name) {
        if (c == ' ' || c == '#' || c == '\\') escaped += '\\';
        if (c == '$') escaped += '$';
        escaped += c;
    }
    return escaped;
}

}  // namespace

std::string DepfileText(std::vector<std::string> const& targets, std::vector<std::string> const& files) {
    std::string text;
    for (std::string const& target : targets) text += (text.empty() ? "" : " ") + Escaped(target);
    text += ':';
    for (std::string const& file : files) text += " \\\n  " + Escaped(file);
    return text + '\n';
}

}  // namespace BxGen
