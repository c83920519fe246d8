#include "apps/krparameter-desk/TableCells.h"

#include "apps/krparameter-desk/RowTexts.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QStyle>

namespace {

constexpr const char *Titles[TableColumns::ColumnCount] = {
    QT_TRANSLATE_NOOP("TableCells", "Adresse"),
    QT_TRANSLATE_NOOP("TableCells", "Name"),
    QT_TRANSLATE_NOOP("TableCells", "Wert"),
    QT_TRANSLATE_NOOP("TableCells", "Einheit"),
    QT_TRANSLATE_NOOP("TableCells", "Default"),
    QT_TRANSLATE_NOOP("TableCells", "Minimum"),
    QT_TRANSLATE_NOOP("TableCells", "Maximum"),
    QT_TRANSLATE_NOOP("TableCells", "Änderungsmarke"),
};

bool isValueColumn(TableColumns::eColumn column)
{
    return column == TableColumns::Value || column == TableColumns::Default
        || column == TableColumns::LowerLimit || column == TableColumns::UpperLimit;
}

} // namespace

QVariant TableCells::header(eColumn column, int role)
{
    if (role == Qt::DisplayRole)
        return tr(Titles[column]);
    if (role != Qt::TextAlignmentRole)
        return {};
    return int((isValueColumn(column) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
}

QVariant TableCells::data(const ValuePlace &place, eColumn column, int role) const
{
    const bool isText = role == Qt::DisplayRole || role == Qt::EditRole || role == Qt::ToolTipRole;
    return isText ? QVariant(text(place, column)) : mark(place, column, role);
}

QString TableCells::text(const ValuePlace &place, eColumn column) const
{
    switch (column) {
    case TableColumns::Address:
        return m_texts.address(place);
    case TableColumns::Name:
        return m_texts.name(place);
    case TableColumns::Value:
        return m_texts.value(place);
    case TableColumns::Unit:
        return m_texts.unit(place);
    case TableColumns::Default:
        return m_texts.defaultValue(place);
    case TableColumns::LowerLimit:
        return m_texts.lowerLimit(place);
    case TableColumns::UpperLimit:
        return m_texts.upperLimit(place);
    case TableColumns::ChangeTag:
        return m_texts.changeTag(place);
    }
    return {};
}

QVariant TableCells::mark(const ValuePlace &place, eColumn column, int role) const
{
    switch (role) {
    case Qt::TextAlignmentRole: {
        const bool isRight = isValueColumn(column) && m_texts.isNumber(place);
        return int((isRight ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    }
    case Qt::DecorationRole:
        return column == TableColumns::Name && m_texts.startsAction(place)
            ? QApplication::style()->standardIcon(QStyle::SP_MediaPlay)
            : QVariant();
    case TableColumns::DiffersRole:
        return column == TableColumns::Value && m_texts.differsFromDefault(place);
    case Qt::AccessibleDescriptionRole:
        if (column == TableColumns::Name && m_texts.startsAction(place))
            return tr("startet eine Aktion des Antriebs");
        return column == TableColumns::Value && m_texts.differsFromDefault(place)
            ? tr("weicht vom Default ab")
            : QVariant();
    case TableColumns::ChoicesRole:
        return QVariant::fromValue(m_texts.choices(place));
    case TableColumns::NativeRole:
        return m_texts.nativeValue(place);
    default:
        return {};
    }
}
