#pragma once

#include <QtCore/QtGlobal>

#include <locale.h>

/// The locale of this thread while the object lives. Lua writes numbers and orders texts by the C
/// library, which follows the locale; a function must not depend on it.
class NumberLocale {
public:
    enum class eLocale { Plain, Process };

    explicit NumberLocale(eLocale locale)
        : m_previous(uselocale(locale == eLocale::Plain ? plain() : LC_GLOBAL_LOCALE))
    {
    }
    ~NumberLocale() { uselocale(m_previous); }
    Q_DISABLE_COPY_MOVE(NumberLocale)

private:
    static locale_t plain()
    {
        static const locale_t locale = newlocale(LC_ALL_MASK, "C", locale_t(nullptr));
        return locale;
    }

    locale_t m_previous;
};
