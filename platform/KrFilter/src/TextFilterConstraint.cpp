#include <KrFilter/TextFilterConstraint.h>

#include <KrFilter/FilterElement.h>

TextFilterConstraint::TextFilterConstraint(
    const QString &propertyName, eMethod method, const QString &text, bool inverted)
    : FilterConstraint(propertyName, inverted)
    , m_method(method)
    , m_text(text)
{
    if (m_method != RegularExpression)
        return;
    m_expression.setPattern(text);
    // Compiles here, once, instead of with the first match.
    m_expression.optimize();
}

TextFilterConstraint::~TextFilterConstraint() = default;

bool TextFilterConstraint::matches(const FilterElement &element) const
{
    const QString text = element.stringProperty(propertyName());
    switch (m_method) {
    case Contains:
        return text.contains(m_text);
    case BeginsWith:
        return text.startsWith(m_text);
    case RegularExpression:
        return m_expression.isValid() && m_expression.match(text).hasMatch();
    case Equals:
        return text == m_text;
    }
    return false;
}
