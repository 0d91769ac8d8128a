#include "desktop/ControlFace.h"

#include <QCoreApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <QWidget>
#include <algorithm>

#include "desktop/Conversions.h"
#include "desktop/HeldMouse.h"
#include "desktop/pointers.h"

namespace quillon {

namespace {

const QEvent::Type kTakeState = static_cast<QEvent::Type>(QEvent::registerEventType());

/// The files of a drop, as the lab writes their paths.
std::vector<std::string> filesOf(const QMimeData* content) {
    std::vector<std::string> files;
    for (const QUrl& url : content->urls())
        if (url.isLocalFile())
            files.push_back(toLabPath(url.toLocalFile()));
    return files;
}

}  // namespace

ControlFace::ControlFace(Form1& form, HeldMouse& mouse, Control& control, QWidget& widget)
    : form_(form), mouse_(mouse), control_(control), widget_(widget) {
    widget_.setObjectName(toQString(control.Name));
    widget_.setMouseTracking(true);
    widget_.setContextMenuPolicy(Qt::PreventContextMenu);
    widget_.installEventFilter(this);
    control_.watch(this);
}

ControlFace::~ControlFace() {
    control_.watch(nullptr);
    mouse_.forget(*this);
}

void ControlFace::stale(Control& /*control*/) {
    if (marked_)
        return;
    marked_ = true;
    QCoreApplication::postEvent(this, new QEvent(kTakeState), Qt::HighEventPriority);
}

void ControlFace::showNow(Control& /*control*/) {
    followState();
    widget_.repaint();
}

bool ControlFace::event(QEvent* event) {
    if (event->type() != kTakeState)
        return QObject::event(event);
    if (marked_)
        followState();
    return true;
}

void ControlFace::followState() {
    marked_ = false;
    takeState();
}

void ControlFace::takeState() {
    const QRect place = placeOf(control_);
    if (widget_.geometry() != place)
        widget_.setGeometry(place);
    if (widget_.isHidden() == control_.Visible.get())
        widget_.setVisible(control_.Visible);
    widget_.setToolTip(toQString(control_.ToolTipText.get()));
    takePointer();
    widget_.update();
}

void ControlFace::takePointer() {
    if (pointer_ == control_.MousePointer && icon_ == control_.MouseIcon)
        return;
    pointer_ = control_.MousePointer;
    icon_ = control_.MouseIcon;
    // The default is whatever the control below shows.
    if (pointer_ == kPointerDefault)
        widget_.unsetCursor();
    else
        widget_.setCursor(pointerOf(pointer_, icon_));
}

QPointF ControlFace::toControl(QPointF position) const {
    return position * static_cast<double>(kTwipsPerPixel);
}

bool ControlFace::eventFilter(QObject* watched, QEvent* event) {
    if (watched != &widget_)
        return QObject::eventFilter(watched, event);
    switch (event->type()) {
        case QEvent::MouseButtonPress:
            mouse_.press(*this, static_cast<const QMouseEvent&>(*event));
            break;
        case QEvent::MouseButtonDblClick:
            mouse_.doublePress(*this, static_cast<const QMouseEvent&>(*event));
            break;
        case QEvent::MouseMove:
            mouse_.move(*this, static_cast<const QMouseEvent&>(*event));
            break;
        case QEvent::MouseButtonRelease:
            mouse_.release(*this, static_cast<const QMouseEvent&>(*event));
            break;
        case QEvent::DragEnter:
            enterDrag(static_cast<QDropEvent&>(*event));
            answerDrag(static_cast<QDropEvent&>(*event));
            return true;
        case QEvent::DragMove:
            answerDrag(static_cast<QDropEvent&>(*event));
            return true;
        case QEvent::Drop:
            drop(static_cast<QDropEvent&>(*event));
            return true;
        default:
            return false;
    }
    // Taken, so that the event does not go on to the control below.
    event->accept();
    return true;
}

QPoint ControlFace::placeOfDragged() const {
    return widget_.pos();
}

void ControlFace::dragBy(QPoint way) {
    const QSize room = widget_.parentWidget()->size() - widget_.size();
    const QPoint place = placeAtPress_ + way;
    control_.Left = toTwips(std::clamp(place.x(), 0, std::max(0, room.width())));
    control_.Top = toTwips(std::clamp(place.y(), 0, std::max(0, room.height())));
}

void ControlFace::enterDrag(const QDropEvent& event) {
    wantsDrag_ = form_.takesDrop(control_, filesOf(event.mimeData()));
}

void ControlFace::answerDrag(QDropEvent& event) const {
    // The lab only reads. A source whose move is accepted deletes its file; one
    // that can only move is refused.
    event.setDropAction(Qt::CopyAction);
    event.setAccepted(wantsDrag_ && event.possibleActions().testFlag(Qt::CopyAction));
}

void ControlFace::drop(QDropEvent& event) {
    answerDrag(event);
    if (event.isAccepted())
        form_.OLEDragDrop(control_, filesOf(event.mimeData()));
}

}  // namespace quillon
