#include "apps/krparameter-desk/SelectorBar.h"

#include <QtGui/QAction>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>

namespace {

constexpr int AllAxes = -1;
constexpr int SearchWidth = 220;

struct Language {
    const char *code;
    /// In itself, so that it is found in every language.
    const char *name;
};

constexpr Language Languages[] = {{"de", "Deutsch"}, {"en", "English"}};

} // namespace

SelectorBar::SelectorBar(QWidget *parent)
    : QToolBar(parent)
    , m_search(new QLineEdit(this))
    , m_axis(nullptr)
    , m_level(nullptr)
    , m_language(nullptr)
{
    setObjectName(QStringLiteral("selectors"));
    setMovable(false);
    // Without it there is no search: no menu of the window offers to hide it.
    toggleViewAction()->setVisible(false);
    m_search->setObjectName(QStringLiteral("search"));
    m_search->setClearButtonEnabled(true);
    m_search->setMinimumWidth(SearchWidth);
    m_search->installEventFilter(this);
    addWidget(m_search);
    m_axis = addSelector(m_axisLabel);
    m_level = addSelector(m_levelLabel);
    m_language = addSelector(m_languageLabel);
    m_axis->setObjectName(QStringLiteral("axis"));
    m_level->setObjectName(QStringLiteral("accessLevel"));
    m_language->setObjectName(QStringLiteral("language"));
    for (const Language &language : Languages)
        m_language->addItem(QLatin1String(language.name), QLatin1String(language.code));
    for (quint32 level = 0; level <= GreatestAccessLevel; ++level)
        m_level->addItem(QString(), level);
    setAxes({});
    connect(m_search, &QLineEdit::textChanged, this, &SelectorBar::searchChanged);
    connect(m_axis, &QComboBox::activated, this, &SelectorBar::onAxisActivated);
    connect(m_level, &QComboBox::activated, this,
        [this] { Q_EMIT accessLevelChosen(m_level->currentData().toUInt()); });
    connect(m_language, &QComboBox::activated, this,
        [this] { Q_EMIT languageChosen(m_language->currentData().toString()); });
    retranslate();
}

void SelectorBar::setAxes(const QList<int> &axes)
{
    m_axis->clear();
    m_axis->addItem(QString(), AllAxes);
    for (const int axis : axes)
        m_axis->addItem(QString(), axis);
    retranslate();
}

void SelectorBar::showAllAxes()
{
    if (m_axis->currentIndex() == 0)
        return;
    m_axis->setCurrentIndex(0);
    onAxisActivated(0);
}

void SelectorBar::showEverything()
{
    m_search->clear();
    showAllAxes();
}

void SelectorBar::setAccessLevel(quint32 level)
{
    m_level->setCurrentIndex(m_level->findData(level));
}

void SelectorBar::setLanguage(const QString &language)
{
    m_language->setCurrentIndex(m_language->findData(language));
}

void SelectorBar::retranslate()
{
    setWindowTitle(tr("Auswahl"));
    m_search->setPlaceholderText(tr("Suchen in Adresse, Name, Einheit und Wert"));
    m_search->setToolTip(tr("Zeilen, die jedes der Wörter enthalten (Strg+F); Escape zeigt alle"));
    m_axis->setToolTip(tr("Zeilen einer Achse; globale Parameter gehören zu jeder"));
    m_level->setToolTip(tr("Was zu sehen ist und was geschrieben werden kann"));
    m_language->setToolTip(tr("Sprache der Texte"));
    m_axisLabel->setText(tr("A&chse"));
    m_levelLabel->setText(tr("Z&ugriffsstufe"));
    m_languageLabel->setText(tr("S&prache"));
    m_axis->setItemText(0, tr("alle"));
    for (int i = 1; i < m_axis->count(); ++i)
        m_axis->setItemText(i, QString::number(m_axis->itemData(i).toInt()));
    for (int i = 0; i < m_level->count(); ++i)
        m_level->setItemText(i, QString::number(i));
    m_level->setItemText(0, tr("0 Bediener"));
    m_level->setItemText(int(GreatestAccessLevel), tr("%1 Hersteller").arg(GreatestAccessLevel));
}

bool SelectorBar::eventFilter(QObject *object, QEvent *event)
{
    if (object != m_search || event->type() != QEvent::KeyPress)
        return QToolBar::eventFilter(object, event);
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Escape:
        m_search->clear();
        return true;
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT searchLeft();
        return true;
    default:
        return QToolBar::eventFilter(object, event);
    }
}

QComboBox *SelectorBar::addSelector(QLabel *&label)
{
    label = new QLabel(this);
    label->setContentsMargins(12, 0, 4, 0);
    auto *selector = new QComboBox(this);
    selector->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    label->setBuddy(selector);
    addWidget(label);
    addWidget(selector);
    return selector;
}

void SelectorBar::onAxisActivated(int index)
{
    const int axis = m_axis->itemData(index).toInt();
    Q_EMIT axisChosen(axis == AllAxes ? std::nullopt : std::optional(eLivingSpace(axis)));
}
