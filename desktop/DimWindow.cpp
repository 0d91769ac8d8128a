#include "desktop/DimWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <string_view>
#include <utility>

#include "desktop/Conversions.h"
#include "desktop/input_codes.h"
#include "desktop/pointers.h"

namespace quillon {

namespace {

constexpr Integer kOpaque = 255;

QRect toQRect(const PixelRect& rect) {
    return {QPoint(rect.left, rect.top), QPoint(rect.right - 1, rect.bottom - 1)};
}

/// A window of its own belongs to the main one and lies above it.
Qt::WindowFlags flagsOf(DarkMeans means) {
    return means == DarkMeans::PaintedChild ? Qt::Widget : Qt::Dialog | Qt::FramelessWindowHint;
}

}  // namespace

DimWindow::DimWindow(frmDIM& dim, QWidget& owner, DarkMeans means, std::function<void()> gone)
    : QWidget(&owner, flagsOf(means)),
      dim_(dim),
      owner_(owner),
      means_(means),
      gone_(std::move(gone)),
      timer_(dim.Timer1, [this] { dim_.Timer1_Timer(); }) {
    setObjectName(toQString(dim_.Name));
    setAccessibleName(QStringLiteral("Light off"));
    setWindowTitle(owner.windowTitle());
    setFocusPolicy(Qt::StrongFocus);
    setContextMenuPolicy(Qt::PreventContextMenu);
    if (!isChild())
        setAttribute(Qt::WA_OpaquePaintEvent);
    hide();
    buildMenu();
    keepKeyboard();
    dim_.watch(this);
}

DimWindow::~DimWindow() {
    if (released_)
        return;
    // The program ends in the dark, or the main window has gone.
    release();
    dim_.abandoned();
}

void DimWindow::release() {
    released_ = true;
    timer_.release();
    dim_.watch(nullptr);
    dim_.fr.watch(nullptr);
    for (Integer i = 0; i < frmDIM::kLabels; ++i)
        dim_.lb(i).watch(nullptr);
}

void DimWindow::buildMenu() {
    menu_ = new QWidget(this);
    menu_->setObjectName(toQString(dim_.fr.Name));
    menu_->setAccessibleName(QStringLiteral("Mini menu"));
    menu_->installEventFilter(this);
    dim_.fr.watch(this);
    for (const ControlRow& row : frmDIM::controlTable()) {
        if (std::string_view(row.name) != "lb")
            continue;
        const auto i = static_cast<Integer>(row.index);
        auto* label = new QLabel(menu_);
        label->setObjectName(toQString(dim_.lb(i).Name));
        label->setAccessibleName(toQString(row.accessibleName));
        label->setTextFormat(Qt::PlainText);
        label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        label->installEventFilter(this);
        labels_.at(static_cast<std::size_t>(i)) = label;
        dim_.lb(i).watch(this);
    }
}

void DimWindow::appear() {
    if (isChild())
        show();
    else if (!isVisible())
        showFullScreen();
    raise();
    takeKeyboard();
}

void DimWindow::keepKeyboard() {
    // L turns the light on at the first press wherever the last click was. And a
    // window system lays its bright panels over a full screen without the keyboard.
    connect(qApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow* now) {
        if (now != nullptr && now == owner_.windowHandle())
            QMetaObject::invokeMethod(
                this, [this] { takeKeyboard(); }, Qt::QueuedConnection);
    });
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, const QWidget* now) {
        if (now != nullptr && now != this && now->window() == &owner_)
            QMetaObject::invokeMethod(
                this, [this] { takeKeyboard(); }, Qt::QueuedConnection);
    });
}

void DimWindow::takeKeyboard() {
    // A dialog keeps it until it is closed.
    if (released_ || QApplication::activeModalWidget() != nullptr)
        return;
    if (!isChild())
        activateWindow();
    setFocus();
}

void DimWindow::coverOwner() {
    if (isChild())
        cover();
}

void DimWindow::cover() {
    setGeometry(isChild() ? owner_.rect() : owner_.screen()->geometry());
    dim_.resized(toTwips(width()), toTwips(height()));
}

void DimWindow::setLayeredBit() {
    if (std::exchange(layered_, true))
        return;
    showAlpha(0);
}

void DimWindow::setLayeredAlpha(Integer alpha) {
    if (layered_)
        showAlpha(alpha);
}

void DimWindow::showAlpha(Integer alpha) {
    alpha_ = alpha;
    if (means_ == DarkMeans::WindowOpacity)
        setWindowOpacity(static_cast<double>(alpha) / kOpaque);
    takeState();
    update();
}

void DimWindow::maximise() {
    if (means_ == DarkMeans::PaintedScreen) {
        // The main window has put on its dark look; that is what fades.
        QCoreApplication::sendPostedEvents();
        owner_.repaint();
        const QRect all = owner_.screen()->geometry();
        screen_ = owner_.screen()->grabWindow(0, 0, 0, all.width(), all.height());
    }
    cover();
}

void DimWindow::setWindowRegion(const PixelRect& whole, const PixelRect& hole) {
    whole_ = toQRect(whole);
    hole_ = toQRect(hole);
    cutHole();
}

QPoint DimWindow::origin() const {
    // A window's own place is right also while the window system has yet to
    // bring it there.
    return isChild() ? mapToGlobal(QPoint(0, 0)) : geometry().topLeft();
}

void DimWindow::cutHole() {
    if (whole_.isEmpty())
        return;
    // The hole is given on the screen. It lies there also where the window does
    // not begin at the screen's corner.
    const QRegion rest = QRegion(whole_) - hole_.translated(-origin());
    // An empty mask would mean none, and cover what is to be seen.
    setMask(rest.isEmpty() ? QRegion(-1, -1, 1, 1) : rest);
    takeState();
}

void DimWindow::unloaded() {
    release();
    hide();
    gone_();
}

void DimWindow::stale(Control& /*control*/) {
    takeState();
}

void DimWindow::takeState() {
    setCursor(pointerOf(dim_.MousePointer, dim_.MouseIcon));
    menu_->setGeometry(placeOf(dim_.fr).translated(-origin()));
    menu_->setVisible(dim_.fr.Visible);
    for (Integer i = 0; i < frmDIM::kLabels; ++i) {
        const Label& state = dim_.lb(i);
        QLabel& label = *labels_.at(static_cast<std::size_t>(i));
        label.setText(toQString(state.Caption.get()));
        label.setToolTip(toQString(state.ToolTipText.get()));
        label.setFont(toQFont(state.FontName, state.FontSize, state.FontBold));
        label.setCursor(pointerOf(state.MousePointer, state.MouseIcon));
        // Painted darkness fades its letters with it; a window's own opacity
        // takes them along.
        QColor ink = toQColor(state.ForeColor);
        if (means_ != DarkMeans::WindowOpacity)
            ink.setAlpha(alpha_);
        QPalette palette = label.palette();
        palette.setColor(QPalette::WindowText, ink);
        label.setPalette(palette);
        const QRect place = placeOf(state);
        label.setGeometry(place);
        if (state.AutoSize)
            label.resize(std::max(place.width(), label.sizeHint().width()), place.height());
    }
}

void DimWindow::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    if (means_ == DarkMeans::PaintedScreen)
        painter.drawPixmap(owner_.screen()->geometry().topLeft() - origin(), screen_);
    const int alpha = means_ == DarkMeans::WindowOpacity ? kOpaque : alpha_;
    painter.fillRect(rect(), QColor(0, 0, 0, alpha));
}

void DimWindow::mousePressEvent(QMouseEvent* event) {
    event->accept();
    // All buttons that are down: a press of one beside another is neither's.
    dim_.MouseDown(buttonCodes(event->buttons() | event->button()));
}

void DimWindow::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
}

bool DimWindow::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            // The mini menu takes its clicks: they are none on the dark.
            return true;
        case QEvent::MouseButtonRelease: {
            const auto& mouse = static_cast<const QMouseEvent&>(*event);
            for (Integer i = 0; i < frmDIM::kLabels; ++i) {
                const QLabel* label = labels_.at(static_cast<std::size_t>(i));
                if (label == watched && mouse.button() == Qt::LeftButton &&
                    label->rect().contains(mouse.position().toPoint()))
                    dim_.Click(dim_.lb(i));
            }
            return true;
        }
        default:
            return QWidget::eventFilter(watched, event);
    }
}

bool DimWindow::event(QEvent* event) {
    // No access key of the menu bar below works in the dark.
    if (event->type() == QEvent::ShortcutOverride) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

void DimWindow::keyPressEvent(QKeyEvent* event) {
    event->accept();
    // A held Escape that has closed a menu or ended a batch stops there: its
    // repetitions do not turn the light on.
    if (!event->isAutoRepeat())
        dim_.KeyDown(keyCode(*event));
    if (const auto letter = keyAscii(*event))
        dim_.KeyPress(*letter);
}

void DimWindow::keyReleaseEvent(QKeyEvent* event) {
    event->accept();
    // A held key repeats its press; the releases in between are the toolkit's own.
    if (!event->isAutoRepeat())
        dim_.KeyUp(keyCode(*event), shiftState(*event));
}

bool DimWindow::focusNextPrevChild(bool /*next*/) {
    return false;
}

void DimWindow::moveEvent(QMoveEvent* /*event*/) {
    cutHole();
}

void DimWindow::resizeEvent(QResizeEvent* /*event*/) {
    if (!released_)
        dim_.resized(toTwips(width()), toTwips(height()));
}

void DimWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    dim_.unload();
}

}  // namespace quillon
