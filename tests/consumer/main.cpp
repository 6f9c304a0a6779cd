#include <BxXmlLib5/BxXmlLib5.h>

using namespace BxXmlLib5;

int main() {
    CElement element(u"");
    element.FromXml(u"<greeting to='world'/>");
    wstring const text = element.ToXml(false, false, eol_LF, CXmlSerializationContext::GetDefaultContext());
    return text == u"<greeting to=\"world\"/>" ? 0 : 1;
}
