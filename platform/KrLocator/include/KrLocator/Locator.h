#pragma once

#include <KrLocator/KrLocatorExport.h>
#include <KrParameterDefinition/eLivingSpace.h>

#include <QtCore/QString>

/// Where a parameter lives in a project, written as anchor ";" path.
///
/// **Shape** anchor "S" is the system locator ("S;{P12}"); an anchor that ends in ".n" with n from
/// 0 to 4 names living space n ("Drive.1;{P12}"); any other anchor is relative; a text that is
/// empty or has no ";" is invalid. The first ";" ends the anchor, the path may have more of them.
class KrLocator_EXPORT Locator {
public:
    Locator() = default;
    explicit Locator(const QString &text) { parseText(text); }

    /// Replaces the content. Returns isValid().
    bool parseText(const QString &text);

    bool isValid() const { return m_kind != eKind::Invalid; }
    bool isSystem() const { return m_kind == eKind::System; }
    bool hasLivingSpace() const { return m_kind == eKind::LivingSpace; }
    bool isRelative() const { return m_kind == eKind::Relative; }
    /// eLivingSpace::Global where the locator names none.
    eLivingSpace livingSpace() const { return m_livingSpace; }
    /// Without ";"; empty for an invalid locator, like the path and the text.
    QString anchor() const { return isValid() ? m_text.first(m_anchorSize) : QString(); }
    QString path() const { return isValid() ? m_text.sliced(m_anchorSize + 1) : QString(); }
    QString toText() const { return m_text; }

private:
    enum class eKind { Invalid, System, LivingSpace, Relative };

    eKind m_kind = eKind::Invalid;
    eLivingSpace m_livingSpace = eLivingSpace::Global;
    /// Shared with the text that was parsed; empty for an invalid locator.
    QString m_text;
    qsizetype m_anchorSize = 0;
};
