#include <KrParameterInstance/ParameterValueSnapshotWidget.h>

#include "snapshot/ParameterValueSnapshotWidgetPrivate.h"

ParameterValueSnapshotWidget::ParameterValueSnapshotWidget(QWidget *parent)
    : QWidget(parent)
    , d(new ParameterValueSnapshotWidgetPrivate(this))
{
}

ParameterValueSnapshotWidget::~ParameterValueSnapshotWidget() = default;

void ParameterValueSnapshotWidget::appendSnapshot(ParameterValueSnapshot *snapshot, QString title)
{
    d->appendSnapshot(snapshot, title);
}

void ParameterValueSnapshotWidget::setHtmlHeader(QString header)
{
    d->setHtmlHeader(header);
}

void ParameterValueSnapshotWidget::update()
{
    d->refill({});
}

bool ParameterValueSnapshotWidget::updateStepwise(
    const std::function<bool(qsizetype done, qsizetype total)> &advance)
{
    return d->refill(advance);
}

bool ParameterValueSnapshotWidget::isEmpty() const
{
    return d->isEmpty();
}

QString ParameterValueSnapshotWidget::report() const
{
    return d->document(SnapshotHtmlReport::eForm::Report);
}

QString ParameterValueSnapshotWidget::safeReport() const
{
    return d->document(SnapshotHtmlReport::eForm::Safe);
}
