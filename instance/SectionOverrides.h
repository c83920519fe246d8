#pragma once

#include "value/PropertyResolver.h"

#include <vector>

namespace LmIniParser {
class IniSection;
}

/// Property overrides in a saved section: keys "P_<element>_<property>" with their change tags under
/// "PC_<element>_<property>".
///
/// A number or text is saved as it reads; a text in several languages as a JSON object from language
/// to [short, long] with every character beyond ASCII escaped, so that it survives Latin-1.
namespace SectionOverrides {

void save(
    LmIniParser::IniSection &section, const std::vector<PropertyResolver::Override> &overrides);
/// Only for properties that the definition knows; everything else is passed over.
std::vector<PropertyResolver::Override> load(
    const LmIniParser::IniSection &section, bool utf8, const PropertyResolver &properties);

} // namespace SectionOverrides
