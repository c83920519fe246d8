#pragma once

#include "snapshot/ParameterValueSnapshotWidgetPrivate.h"
#include "tests/snapshot/SnapshotFixture.h"
#include "tests/support/TestSettings.h"

#include <KrParameterInstance/ParameterValueSnapshotWidget.h>

#include <QtCore/QTemporaryDir>
#include <QtWidgets/QPushButton>

#include <memory>
#include <vector>

class ParameterValueSnapshot;

/// A comparison in a window, over a small device.
class SnapshotWidgetTest : public QObject {
protected:
    SnapshotWidgetTest();
    ~SnapshotWidgetTest() override;

    /// A00 "Speed" on two axes in rpm, B01 "Table" with the elements 0 and 2; an empty widget.
    void setUp();
    void tearDown();
    QTreeWidget *tree() const { return m_widget->findChild<QTreeWidget *>(); }
    ParameterValueSnapshotWidgetPrivate *priv() const
    {
        return static_cast<ParameterValueSnapshotWidgetPrivate *>(tree());
    }
    QList<QPushButton *> buttons() const;
    /// "title|cell|cell", indented by depth.
    QStringList visibleRows() const;
    /// Of the device as it is now. **Owner** this.
    ParameterValueSnapshot *take();
    /// The next dialogs end with this file; none for an empty name.
    void answerDialog(const QString &fileName);
    /// By number, from the left.
    void click(int button);

    const TestSettings m_settings;
    QTemporaryDir m_directory;
    std::unique_ptr<SnapshotFixture> m_fixture;
    std::vector<std::unique_ptr<ParameterValueSnapshot>> m_snapshots;
    std::unique_ptr<ParameterValueSnapshotWidget> m_widget;
    /// Caption, start folder and name filter of the dialogs that were asked for.
    QStringList m_dialogs;
    QWidget *m_dialogParent = nullptr;
};
