#include "apps/krparameter-desk/ColumnFitter.h"

#include "apps/krparameter-desk/ParameterTableModel.h"

#include <QtCore/QEvent>
#include <QtCore/QScopedValueRollback>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QStyle>
#include <QtWidgets/QTableView>

#include <algorithm>

namespace {

using Table = ParameterTableModel;

/// The least, in widths of the letter "x".
constexpr int Letters[Table::ColumnCount] = {8, 20, 18, 9, 13, 13, 13, 10};
/// Left and right of a text.
constexpr int Margin = 8;

int widest(const QStringList &texts, const QFontMetrics &metrics)
{
    int width = 0;
    for (const QString &text : texts)
        width = std::max(width, metrics.horizontalAdvance(text));
    return width + Margin;
}

} // namespace

ColumnFitter::ColumnFitter(const ParameterTableModel &model, QTableView &view)
    : QObject(&view)
    , m_model(model)
    , m_view(view)
{
    measure();
    connect(&model, &QAbstractItemModel::modelReset, this, &ColumnFitter::measure);
    // Texts in another language.
    connect(&model, &QAbstractItemModel::headerDataChanged, this, &ColumnFitter::measure);
    connect(view.horizontalHeader(), &QHeaderView::sectionResized, this, &ColumnFitter::onResized);
    view.installEventFilter(this);
}

ColumnFitter::Widths ColumnFitter::share(const Needs &needs, int room)
{
    if (needs.name + needs.value <= room)
        return {needs.name, std::max(needs.value, std::min(needs.choice, room - needs.name))};
    // The one that needs less than half keeps what it needs.
    const int all = std::max(room, needs.leastName + needs.leastValue);
    const int fair = needs.value <= all / 2 ? all - needs.value : std::min(needs.name, all / 2);
    const int name = std::clamp(fair, needs.leastName, all - needs.leastValue);
    return {name, all - name};
}

QByteArray ColumnFitter::state() const
{
    return m_isUsers ? m_view.horizontalHeader()->saveState() : QByteArray();
}

void ColumnFitter::restore(const QByteArray &state)
{
    const QScopedValueRollback fitting(m_isFitting, true);
    if (!state.isEmpty() && m_view.horizontalHeader()->restoreState(state))
        m_isUsers = true;
}

bool ColumnFitter::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        fit();
    return QObject::eventFilter(object, event);
}

void ColumnFitter::measure()
{
    if (m_isUsers)
        return;
    const QScopedValueRollback fitting(m_isFitting, true);
    const QFontMetrics metrics = m_view.fontMetrics();
    const auto least = [&](int column) {
        const QString title =
            m_model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
        return std::max(Letters[column] * metrics.horizontalAdvance(QLatin1Char('x')),
            widest({title}, metrics));
    };
    for (int column = 0; column < Table::ColumnCount; ++column)
        m_view.setColumnWidth(column, least(column));
    const auto needed = [&](Table::eColumn column) {
        return std::max(least(column), widest(m_model.longestTexts(column), metrics));
    };
    m_view.setColumnWidth(Table::Address, needed(Table::Address));
    // Where it differs from its default.
    QFont bold = m_view.font();
    bold.setBold(true);
    m_needs = {needed(Table::Name), needed(Table::Value),
        widest(m_model.longestChoices(), QFontMetrics(bold)), least(Table::Name),
        least(Table::Value)};
    m_tagWidth = least(Table::ChangeTag);
    fit();
}

void ColumnFitter::fit()
{
    if (m_isUsers)
        return;
    const QScopedValueRollback fitting(m_isFitting, true);
    // A scroll bar that comes and goes with the rows found moves nothing.
    int room = m_view.maximumViewportSize().width()
        - m_view.style()->pixelMetric(QStyle::PM_ScrollBarExtent) - m_tagWidth;
    for (const int column :
        {Table::Address, Table::Unit, Table::Default, Table::LowerLimit, Table::UpperLimit})
        room -= m_view.columnWidth(column);
    const Widths widths = share(m_needs, room);
    m_view.setColumnWidth(Table::Name, widths.name);
    m_view.setColumnWidth(Table::Value, widths.value);
}

/// The last column follows the others and the window.
void ColumnFitter::onResized(int column)
{
    if (!m_isFitting && column != Table::ChangeTag)
        m_isUsers = true;
}
