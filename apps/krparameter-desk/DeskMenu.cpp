#include "apps/krparameter-desk/DeskMenu.h"

#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>

namespace {

constexpr int Separator = -1;
constexpr int End = -2;

struct Entry {
    const char *title;
    int actions[8];
};

constexpr Entry Menus[] = {
    {QT_TRANSLATE_NOOP("DeskMenu", "&Datei"),
        {DeskActions::OpenDevice, DeskActions::LoadProject, DeskActions::SaveProject,
            DeskActions::SaveProjectAs, Separator, DeskActions::Quit, End}},
    {QT_TRANSLATE_NOOP("DeskMenu", "&Bearbeiten"),
        {DeskActions::Undo, DeskActions::Redo, Separator, DeskActions::Search,
            DeskActions::EditValue, End}},
    {QT_TRANSLATE_NOOP("DeskMenu", "Ge&rät"),
        {DeskActions::GoOnline, DeskActions::ChooseDrive, DeskActions::ReadOnly, Separator,
            DeskActions::StartAction, End}},
    {QT_TRANSLATE_NOOP("DeskMenu", "&Snapshots"),
        {DeskActions::TakeSnapshot, DeskActions::CompareSnapshots, DeskActions::RemoveSnapshot,
            End}},
    {QT_TRANSLATE_NOOP("DeskMenu", "&Ansicht"),
        {DeskActions::ShowParameters, DeskActions::ShowComparison, DeskActions::GoToSnapshots,
            DeskActions::GoToMessages, Separator, DeskActions::ClearMessages, End}},
};

} // namespace

DeskMenu::DeskMenu(QMenuBar &bar, const DeskActions &actions)
    : QObject(&bar)
{
    for (const Entry &entry : Menus) {
        QMenu *menu = bar.addMenu(QString());
        // Of those that cannot be done now they say why.
        menu->setToolTipsVisible(true);
        for (const int action : entry.actions) {
            if (action == End)
                break;
            if (action == Separator)
                menu->addSeparator();
            else
                menu->addAction(actions[DeskActions::eAction(action)]);
        }
        m_menus.append(menu);
    }
    retranslate();
}

void DeskMenu::retranslate()
{
    for (qsizetype i = 0; i < m_menus.size(); ++i)
        m_menus.at(i)->setTitle(tr(Menus[i].title));
}
