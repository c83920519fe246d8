#include "apps/import/ObjectSections.h"

#include "apps/import/EdsFile.h"
#include "apps/import/EdsSectionName.h"
#include "apps/import/ImportRemarks.h"

namespace {

using eKind = EdsSectionName::eKind;

/// Null for a section that says nothing of values.
const EdsSection **slotOf(ObjectSections &sections, const EdsSectionName &name)
{
    switch (name.kind) {
    case eKind::Object:
        return &sections.object;
    case eKind::SubObject:
        return &sections.subObjects[name.subIndex];
    case eKind::NameList:
        return &sections.names;
    case eKind::DefaultList:
        return &sections.defaults;
    case eKind::ValueList:
        return &sections.values;
    default:
        return nullptr;
    }
}

void place(const EdsSection **slot, const EdsSection &section, ImportRemarks &remarks)
{
    if (slot == nullptr)
        return;
    if (*slot == nullptr) {
        *slot = &section;
        return;
    }
    remarks.add(section.line(),
        ObjectSections::tr("der Abschnitt %1 wiederholt %2 aus Zeile %3, übersprungen")
            .arg(ImportRemarks::excerpt(section.name()), ImportRemarks::excerpt((*slot)->name()),
                QString::number((*slot)->line())));
}

} // namespace

QMap<quint16, ObjectSections> ObjectSections::collect(const EdsFile &file, ImportRemarks &remarks)
{
    QMap<quint16, ObjectSections> objects;
    for (const EdsSection &section : file.sections()) {
        const EdsSectionName name = EdsSectionName::parse(section.name());
        if (name.kind == eKind::Unknown) {
            remarks.add(section.line(),
                tr("der Abschnitt %1 nennt kein Objekt, übersprungen")
                    .arg(ImportRemarks::excerpt(section.name())));
        }
        if (name.index == 0)
            continue;
        ObjectSections &sections = objects[name.index];
        sections.line = sections.line == 0 ? section.line() : sections.line;
        place(slotOf(sections, name), section, remarks);
    }
    return objects;
}
