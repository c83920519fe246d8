#include "apps/krparameter/NamePattern.h"

NamePattern::NamePattern(const QString &text)
    : m_part(text)
{
    if (!text.contains(u'*') && !text.contains(u'?'))
        return;
    QString expression;
    for (const QChar c : text) {
        if (c == u'*')
            expression += QLatin1String(".*");
        else if (c == u'?')
            expression += u'.';
        else
            expression += QRegularExpression::escape(QString(c));
    }
    m_shape = QRegularExpression(QRegularExpression::anchoredPattern(expression),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
}

bool NamePattern::matches(const QString &text) const
{
    return m_shape.pattern().isEmpty() ? text.contains(m_part, Qt::CaseInsensitive)
                                       : m_shape.match(text).hasMatch();
}
