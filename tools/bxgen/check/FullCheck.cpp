#include "check/FullCheck.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <system_error>
#include <tuple>

#include "check/ChildProcess.h"
#include "check/XercesCheck.h"

namespace BxGen {

namespace {

/// From this bound on Xerces-C's check of content models may not end.
constexpr std::uint64_t kManyOccurrences = 1000;

bool HasMany(ModelGroup const& group);

bool HasMany(Particle const& particle) {
    auto const isMany = [](std::uint64_t bound) {
        return bound != Occurs::kUnbounded && bound >= kManyOccurrences;
    };
    if (isMany(particle.m_occurs.m_min) || isMany(particle.m_occurs.m_max)) return true;
    // A named group is looked at by itself.
    return particle.m_reference == nullptr && particle.AsGroup() != nullptr && HasMany(*particle.AsGroup());
}

bool HasMany(ModelGroup const& group) {
    return std::ranges::any_of(group.m_particles, [](Particle const* member) { return HasMany(*member); });
}

bool HasMany(SchemaSet const& set) {
    auto const typeHasMany = [](Type const* type) {
        ComplexType const* const complex = type->AsComplex();
        return complex != nullptr && complex->m_ownParticle != nullptr && HasMany(*complex->m_ownParticle);
    };
    return std::ranges::any_of(set.Types(), typeHasMany) ||
           std::ranges::any_of(set.AnonymousTypes(), typeHasMany) ||
           std::ranges::any_of(set.Groups(),
                               [](NamedGroup const* group) { return HasMany(*group->m_group); });
}

/// Fields of a message, each ended by a zero.
std::string Packed(XercesMessage const& message) {
    std::string packed;
    for (std::string const& field :
         {message.m_file, std::to_string(message.m_line), std::to_string(message.m_column), message.m_text}) {
        packed += field.substr(0, field.find('\0')) + '\0';
    }
    return packed;
}

/// Takes a field; empty at the end.
std::string_view NextField(std::string_view& packed) {
    std::size_t const end = std::min(packed.find('\0'), packed.size());
    std::string_view const field = packed.substr(0, end);
    packed.remove_prefix(std::min(end + 1, packed.size()));
    return field;
}

std::uint64_t NextNumber(std::string_view& packed) {
    std::string_view const digits = NextField(packed);
    std::uint64_t number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

/// Finds where things stand.
class Places {
public:
    explicit Places(SchemaSet const& set) : m_set(set) {}

    Place Of(XercesMessage const& message) const {
        for (SchemaDocument const* const document : m_set.Documents()) {
            if (document->m_file != message.m_file) continue;
            if (message.m_line == 0) break;
            Place place = document->m_root->m_place;
            Follow(*document->m_root, {message.m_line, message.m_column}, place);
            return place;
        }
        return OfTypeIn(message.m_text);
    }

private:
    using Position = std::pair<std::uint64_t, std::uint64_t>;

    static Position PositionOf(Place const& place) { return {place.m_line, place.m_column}; }

    /// The last element that starts before an end of a tag is the one that the tag belongs to.
    static void Follow(XmlElement const& element, Position const& end, Place& place) {
        if (PositionOf(element.m_place) >= end) return;
        place = element.m_place;
        for (XmlElement::Node const& node : element.m_content) {
            if (auto const* const child = std::get_if<XmlElement const*>(&node)) Follow(**child, end, place);
        }
    }

    /// Messages on content models have no place, but name the type.
    Place OfTypeIn(std::string_view text) const {
        for (Type const* const type : m_set.Types()) {
            if (text.find('\'' + std::string(type->m_name.m_local) + '\'') != text.npos) return type->m_place;
        }
        return m_set.Documents().front()->m_root->m_place;
    }

    SchemaSet const& m_set;
};

void Report(std::string_view packed, SchemaSet const& set, Diagnostics& diagnostics) {
    Places const places(set);
    // Content models are checked wherever they are used.
    std::vector<std::pair<Place, std::string>> seen;
    while (!packed.empty()) {
        XercesMessage message;
        message.m_file = NextField(packed);
        message.m_line = NextNumber(packed);
        message.m_column = NextNumber(packed);
        message.m_text = NextField(packed);
        if (message.m_text.empty()) return;
        std::pair const told(places.Of(message), message.m_text);
        if (std::ranges::find(seen, told) != seen.end()) continue;
        seen.push_back(told);
        diagnostics.Error(told.first, "check", told.second);
    }
}

}  // namespace

void CheckFully(std::vector<std::string> const& files, SchemaSet const& set, Diagnostics& diagnostics) {
    Place const first = set.Documents().front()->m_root->m_place;
    bool const isFull = !HasMany(set);
    if (!isFull) {
        diagnostics.Warning(first, "check",
                            "there are bounds of 1000 and more, so content models are not checked");
    }
    try {
        ChildOutcome const outcome = RunInChild([&](auto const& write) {
            CheckWithXerces(files, set, isFull, [&](XercesMessage const& one) { write(Packed(one)); });
        });
        Report(outcome.m_output, set, diagnostics);
        if (!outcome.m_failure.empty())
            diagnostics.Error(first, "check", "the full check " + outcome.m_failure);
    } catch (std::system_error const& failure) {
        diagnostics.Error(first, "check",
                          "there is no process for the full check: " + failure.code().message());
    }
}

bool HasFullCheck() {
    return true;
}

}  // namespace BxGen
