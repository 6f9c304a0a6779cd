#include "generated/Expected.h"

namespace BxXmlLib5::Generated {

wstring Expected(Particle const& particle) {
    wstring names;
    for (Particle::Start const& start : particle.starts) {
        if (!names.empty()) names += u' ';
        names += u'[' + start.particle->name + u']';
    }
    return (particle.starts.size() == 1 ? u"the element " : u"one of the elements ") + names;
}

}  // namespace BxXmlLib5::Generated
