#pragma once

#include "value/PropertyResolver.h"

#include <vector>

namespace LmIniParser {
class IniSection;
}

/// Property overrides in a saved section: keys "P_<element>_<property>" with their change tags under
/// "PC_<element>_<property>".
///
/// value  = number or text as it reads, or one of
///          "t:" JSON object from language to [short, long]      a text in several languages
///          "m:" JSON object from number to such an object       a choice map
///          "l:" numbers separated by ","                        a list of numbers
///          "n:"                                                 the property is absent
///          "s:" text                                            a text that begins like one of these
/// In JSON every character beyond ASCII is escaped, so that it survives Latin-1.
namespace SectionOverrides {

/// What load() takes back: overrides of elements that a newer definition lacks stay out, like the values of
/// these.
void save(LmIniParser::IniSection &section, const PropertyResolver &properties);
/// Of elements that are there, also of properties that the definition lacks, as a stored override outlives
/// its definition; the value of one is a text then. Everything else is passed over.
std::vector<PropertyResolver::Override> load(
    const LmIniParser::IniSection &section, bool utf8, const PropertyResolver &properties);

} // namespace SectionOverrides
