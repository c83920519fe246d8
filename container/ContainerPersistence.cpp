#include "container/ContainerPersistence.h"

#include "container/ParameterContainerPrivate.h"
#include "container/QuestionRound.h"

#include <LmUtilities/IniParser.h>

namespace {

constexpr QByteArrayView Header(";type=\"parametervalues\" version=\"0\"\r\n");

} // namespace

QString ContainerPersistence::blockName()
{
    return QStringLiteral("Parameter.ini");
}

QByteArray ContainerPersistence::save(const ParameterContainerPrivate &container)
{
    LmIniParser::IniParser parser;
    // A text that is not there yet is asked from the functions.
    const QuestionRound round(container);
    for (const QPointer<CoordinateInstanceSet> &set : container.guardedSets()) {
        if (!set)
            continue;
        set->saveToSection(*parser.createSection(set->coordinate().toSortableText().toLatin1()));
        // The firmware's functions, asked for a text that is not there yet, may end the parameter.
        if (!set)
            parser.removeLastSection();
    }
    const QByteArray text = parser.getIniTextWithoutByteOrderMarker();
    QByteArray block;
    block.reserve(Header.size() + text.size());
    return block.append(Header).append(text);
}

void ContainerPersistence::load(const QByteArray &block, ParameterContainerPrivate &container)
{
    LmIniParser::IniParser parser;
    parser.setIniText(block);
    const QPointer<ParameterContainerPrivate> guard(&container);
    for (const QByteArray &name : parser.allSectionNames()) {
        CoordinateInstanceSet *set = container.find(ParameterCoordinate(QString::fromLatin1(name)));
        if (set)
            set->loadFromSection(*parser.section(name), parser.utf8Encoded());
        if (!guard)
            return;
    }
    // At the end, as a parameter may follow one that was loaded after it.
    container.askKnownFlagsAnew();
}
