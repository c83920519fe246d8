#pragma once

#include <KrParameterDefinition/eLivingSpace.h>

#include <QtCore/QList>
#include <QtWidgets/QToolBar>

#include <optional>

class QComboBox;
class QLabel;
class QLineEdit;

/// What narrows and colours the table: search field, axis, access level and language.
class SelectorBar : public QToolBar {
    Q_OBJECT

public:
    static constexpr quint32 GreatestAccessLevel = 6;

    explicit SelectorBar(QWidget *parent);

    QLineEdit *searchField() const { return m_search; }
    /// Chooses all of them.
    void setAxes(const QList<int> &axes);
    /// **Emits** axisChosen where one was chosen.
    void showAllAxes();
    /// Nothing is searched, no axis chosen.
    void showEverything();
    void setAccessLevel(quint32 level);
    void setLanguage(const QString &language);
    void retranslate();

Q_SIGNALS:
    void searchChanged(const QString &text);
    /// The search is done; the table is next.
    void searchLeft();
    void axisChosen(std::optional<eLivingSpace> axis);
    void accessLevelChosen(quint32 level);
    void languageChosen(const QString &language);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    QComboBox *addSelector(QLabel *&label);
    void onAxisActivated(int index);

    QLineEdit *m_search;
    QLabel *m_axisLabel = nullptr;
    QLabel *m_levelLabel = nullptr;
    QLabel *m_languageLabel = nullptr;
    QComboBox *m_axis;
    QComboBox *m_level;
    QComboBox *m_language;
};
