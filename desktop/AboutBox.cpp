#include "desktop/AboutBox.h"

#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QWindow>

#include "desktop/Conversions.h"
#include "desktop/input_codes.h"
#include "desktop/pointers.h"

namespace quillon {

AboutBox::AboutBox(frmAbout& about, QWidget& owner)
    : QDialog(&owner), about_(about), picture_(QStringLiteral(":/about.jpg")) {
    setObjectName(toQString(about_.Name));
    setWindowTitle(toQString(about_.Caption.get()));
    setAccessibleName(windowTitle());
    setWindowIcon(owner.windowIcon());
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                   Qt::WindowCloseButtonHint | Qt::MSWindowsFixedSizeDialogHint);
    setFixedSize(placeOf(about_).size());
    // The frame is not known before the box is on the screen; it will be like the
    // owner's.
    const QRect ground = owner.frameGeometry();
    const QRect framed(QPoint(), size() + ground.size() - owner.size());
    move(ground.center() - framed.center());
    controls_[this] = &about_;
    installEventFilter(this);
    for (Label* label : {&about_.lblVersion, &about_.lblTitle, &about_.lblDescription})
        add(*label);
    addButton();
}

void AboutBox::add(Label& label) {
    auto* shown = new QLabel(toQString(label.Caption.get()), this);
    shown->setObjectName(toQString(label.Name));
    shown->setTextFormat(Qt::PlainText);
    shown->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    shown->setAccessibleName(shown->text());
    shown->setFont(toQFont(label.FontName, label.FontSize, label.FontBold));
    QPalette palette = shown->palette();
    palette.setColor(QPalette::WindowText, toQColor(label.ForeColor));
    shown->setPalette(palette);
    QRect place = placeOf(label);
    if (label.AutoSize)
        place.setSize(place.size().expandedTo(shown->sizeHint()));
    shown->setGeometry(place);
    shown->installEventFilter(this);
    controls_[shown] = &label;
}

void AboutBox::addButton() {
    const CommandButton& button = about_.cmdOK;
    auto* shown = new QPushButton(toQString(button.Caption.get()), this);
    shown->setObjectName(toQString(button.Name));
    shown->setAccessibleName(shown->text());
    shown->setToolTip(toQString(button.ToolTipText.get()));
    shown->setFont(toQFont(button.FontName, button.FontSize, button.FontBold));
    shown->setGeometry(placeOf(button));
    shown->setDefault(true);
    connect(shown, &QPushButton::clicked, this, [this] {
        about_.Click(about_.cmdOK);
        if (about_.isUnloaded())
            accept();
    });
}

void AboutBox::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), toQColor(about_.BackColor()));
    // The picture has more pixels than the box, for screens of a finer grain.
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(rect(), picture_);
}

bool AboutBox::eventFilter(QObject* watched, QEvent* event) {
    const auto found = controls_.find(watched);
    if (found == controls_.end())
        return QDialog::eventFilter(watched, event);
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            press(*found->second, static_cast<const QMouseEvent&>(*event));
            return true;
        case QEvent::MouseMove:
            follow(static_cast<const QMouseEvent&>(*event));
            return true;
        case QEvent::MouseButtonRelease:
            dragging_ = false;
            return true;
        case QEvent::WindowDeactivate:
        case QEvent::WindowBlocked:
        case QEvent::Hide:
        case QEvent::UngrabMouse:
            // The mouse has been taken away; its release comes to somebody else.
            dragging_ = false;
            return QDialog::eventFilter(watched, event);
        default:
            return QDialog::eventFilter(watched, event);
    }
}

void AboutBox::press(Control& where, const QMouseEvent& event) {
    pressedAt_ = event.globalPosition().toPoint();
    about_.MouseDown(where, buttonCodes(event.buttons() | event.button()),
                     shiftState(event.modifiers()));
    setCursor(pointerOf(about_.MousePointer, about_.MouseIcon));
}

void AboutBox::follow(const QMouseEvent& event) {
    dragging_ = dragging_ && event.buttons().testFlag(Qt::LeftButton);
    if (dragging_)
        move(placeAtPress_ + event.globalPosition().toPoint() - pressedAt_);
}

void AboutBox::beginDrag() {
    // The window system moves a window best. Where it does not, the box follows
    // the pointer itself.
    dragging_ = windowHandle() == nullptr || !windowHandle()->startSystemMove();
    placeAtPress_ = pos();
}

}  // namespace quillon
