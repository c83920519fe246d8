#include "apps/krparameter-desk/RejectionNote.h"

#include <algorithm>

namespace {

constexpr int GreatestWidth = 460;
constexpr int Distance = 3;

} // namespace

RejectionNote::RejectionNote(QWidget *parent)
    : QLabel(parent)
{
    hide();
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setMargin(5);
    setStyleSheet(
        QStringLiteral("background: #fdecea; color: #7a1010; border: 1px solid #c62828;"));
}

void RejectionNote::showBeside(const QRect &field, const QString &message)
{
    setText(message);
    const int room = std::max(0, parentWidget()->width() - 2 * Distance);
    const int width = std::min({GreatestWidth, room,
        fontMetrics().boundingRect(QRect(0, 0, GreatestWidth, 0), Qt::TextWordWrap, message).width()
            + 24});
    const int height = heightForWidth(width);
    const int left = std::clamp(field.left(), Distance, std::max(Distance, room - width));
    const bool hasRoomBelow = field.bottom() + Distance + height < parentWidget()->height();
    const int top =
        hasRoomBelow ? field.bottom() + Distance : std::max(0, field.top() - Distance - height);
    setGeometry(left, top, width, height);
    show();
    raise();
}
