#include <KrLocator/Locator.h>

#include <QtCore/QStringView>

#include <optional>

namespace {

constexpr QChar Separator = u';';

/// anchor = [name] "." digit, digit "0" to "4"; nullopt for any other anchor.
std::optional<eLivingSpace> livingSpaceOf(QStringView anchor)
{
    if (anchor.size() < 2 || anchor[anchor.size() - 2] != u'.')
        return {};
    const QChar digit = anchor.back();
    if (digit < u'0' || digit > u'4')
        return {};
    return eLivingSpace(digit.unicode() - u'0');
}

} // namespace

bool Locator::parseText(const QString &text)
{
    const qsizetype separator = text.indexOf(Separator);
    if (separator < 0) {
        *this = Locator();
        return false;
    }

    m_text = text;
    m_anchorSize = separator;
    const QStringView anchor = QStringView(text).first(separator);
    const std::optional<eLivingSpace> livingSpace = livingSpaceOf(anchor);
    m_livingSpace = livingSpace.value_or(eLivingSpace::Global);
    if (anchor == u"S")
        m_kind = eKind::System;
    else
        m_kind = livingSpace ? eKind::LivingSpace : eKind::Relative;
    return true;
}
