#include "apps/krparameter-desk/LongestTexts.h"

#include <algorithm>

namespace {

constexpr qsizetype GreatestCount = 8;

} // namespace

void LongestTexts::add(const QString &text)
{
    if (m_texts.size() == GreatestCount && text.size() <= m_texts.constLast().size())
        return;
    if (text.isEmpty() || m_texts.contains(text))
        return;
    const auto shorter = std::find_if(m_texts.cbegin(), m_texts.cend(),
        [&](const QString &other) { return other.size() < text.size(); });
    m_texts.insert(shorter, text);
    if (m_texts.size() > GreatestCount)
        m_texts.removeLast();
}
