#include "desktop/FormWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QCursor>
#include <QDeadlineTimer>
#include <QMenuBar>
#include <QScopeGuard>
#include <QTimer>
#include <QWindow>

#include "desktop/AboutBox.h"
#include "desktop/BrowserFace.h"
#include "desktop/ControlFace.h"
#include "desktop/Conversions.h"
#include "desktop/DimWindow.h"
#include "desktop/ExportDialog.h"
#include "desktop/FrameWidget.h"
#include "desktop/HeldMouse.h"
#include "desktop/KeyPreview.h"
#include "desktop/LabMenus.h"
#include "desktop/LampWidget.h"
#include "desktop/QtScreen.h"
#include "desktop/RimmedLabel.h"
#include "desktop/TimerFace.h"
#include "desktop/faces.h"
#include "desktop/hand_pace.h"

namespace quillon {

namespace {

bool isTab(const Control& control) {
    return control.Name.starts_with("lbTAB");
}

/// A text in the strip keeps off the window's edge.
constexpr int kStatusIndent = 4;

bool isStatusCell(const Control& control) {
    return control.Name.starts_with("lbSTB");
}

Qt::Alignment alignmentOf(const Control& control) {
    return isTab(control) ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter;
}

/// Ends the program once no dialog is on show. A script may go on behind the end
/// of its session and fail there; a dialog that is open while the program ends
/// would vanish before anybody has read it.
void quitBehindDialogs() {
    if (QWidget* dialog = QApplication::activeModalWidget())
        QObject::connect(dialog, &QObject::destroyed, QCoreApplication::instance(),
                         quitBehindDialogs, Qt::QueuedConnection);
    else
        QCoreApplication::quit();
}

/// Only the image panels take files.
bool takesFiles(const Control& control) {
    return control.Name == "pb1" || control.Name == "pb4";
}

}  // namespace

class FormWindow::Surface : public ControlFace {
public:
    Surface(FormWindow& window, QWidget& area)
        : ControlFace(window.form_, *window.mouse_, window.form_, area), window_(window) {
        area.setAutoFillBackground(true);
    }
    void dragBy(QPoint way) override { window_.move(placeAtPress() + way); }

protected:
    void takeState() override {
        QPalette palette = widget().palette();
        palette.setColor(widget().backgroundRole(), toQColor(control().BackColor()));
        widget().setPalette(palette);
        const QString title = toQString(control().Caption.get());
        window_.setWindowTitle(title.isEmpty() ? QStringLiteral("Quillon") : title);
        window_.takePlace();
        takePointer();
    }
    QPoint placeOfDragged() const override { return window_.pos(); }

private:
    FormWindow& window_;
};

FormWindow::FormWindow(Form1& form, QtScreen& screen, BrowserSource browser)
    : form_(form), screen_(screen), bar_(new QMenuBar(this)), area_(new QWidget(this)) {
    setObjectName(QStringLiteral("FormWindow"));
    setFocusPolicy(Qt::StrongFocus);
    menus_ = std::make_unique<LabMenus>(form_, *bar_, [this] { keys_->releaseAll(); });
    mouse_ = std::make_unique<HeldMouse>(form_, *this);
    surface_ = std::make_unique<Surface>(*this, *area_);
    for (Control* control : form_.controls())
        build(form_.rowOf(*control), *control, browser);
    keys_ = std::make_unique<KeyPreview>(form_, *this, screen_);
    brightAgain_.setSingleShot(true);
    connect(&brightAgain_, &QTimer::timeout, this, [this] { setUpdatesEnabled(true); });
    screen_.setDragger([this](Control& control) { drag(control); });
    form_.setHost(this);
}

FormWindow::~FormWindow() {
    delete dimWindow_;
    form_.setHost(nullptr);
    screen_.setDragger({});
}

QWidget& FormWindow::parentWidgetOf(const Control& control) {
    QWidget* parent = widgetOf(*form_.parentOf(control));
    return parent != nullptr ? *parent : *area_;
}

QWidget* FormWindow::widgetOf(const Control& control) const {
    if (&control == &form_)
        return area_;
    for (const auto& face : faces_)
        if (&face->control() == &control)
            return &face->widget();
    return nullptr;
}

void FormWindow::build(const ControlRow& row, Control& control, BrowserSource& browser) {
    QWidget& parent = parentWidgetOf(control);
    QWidget* widget = nullptr;
    switch (row.kind) {
        case ControlKind::PictureBox: {
            auto& panel = static_cast<PictureBox&>(control);
            auto* panelWidget = new PanelWidget(panel, &parent);
            panelWidget->setAcceptDrops(takesFiles(control));
            faces_.push_back(std::make_unique<PanelFace>(form_, *mouse_, panel, *panelWidget));
            widget = panelWidget;
            break;
        }
        case ControlKind::Label: {
            const auto* panel = dynamic_cast<const PictureBox*>(form_.parentOf(control));
            auto* label = panel != nullptr ? new RimmedLabel(*panel, &parent) : new QLabel(&parent);
            label->setIndent(isStatusCell(control) ? kStatusIndent : 0);
            faces_.push_back(
                std::make_unique<LabelFace>(form_, *mouse_, control, *label, alignmentOf(control)));
            widget = label;
            break;
        }
        case ControlKind::Frame:
            widget = new FrameWidget(control, &parent);
            faces_.push_back(std::make_unique<ControlFace>(form_, *mouse_, control, *widget));
            break;
        case ControlKind::Image:
            widget = new LampWidget(&parent);
            faces_.push_back(std::make_unique<ControlFace>(form_, *mouse_, control, *widget));
            break;
        case ControlKind::Shape:
            static_cast<PanelWidget&>(parent).addShape(static_cast<Shape&>(control));
            watchers_.push_back(std::make_unique<OverlayFace>(control, parent));
            break;
        case ControlKind::Line:
            static_cast<PanelWidget&>(parent).addLine(static_cast<LineControl&>(control));
            watchers_.push_back(std::make_unique<OverlayFace>(control, parent));
            break;
        case ControlKind::Timer:
            watchers_.push_back(heldControlsTimer(static_cast<Timer&>(control)));
            break;
        case ControlKind::Browser:
            watchers_.push_back(std::make_unique<BrowserFace>(form_, static_cast<Browser&>(control),
                                                              parent, std::move(browser)));
            break;
        case ControlKind::FileList:
            // A helper of the batch run that nobody sees.
            break;
    }
    if (widget != nullptr) {
        widget->setAccessibleName(
            toQString(*row.accessibleName != '\0' ? row.accessibleName : row.caption));
        faces_.back()->stale(control);
    }
}

std::unique_ptr<ControlWatcher> FormWindow::heldControlsTimer(Timer& timer) {
    return std::make_unique<TimerFace>(
        timer, [this] { form_.Timer1_Timer(); },
        [this, &timer](int ticks) {
            return waitBeforeStep(form_.stepsAtPress() + ticks, timer.Interval);
        });
}

void FormWindow::show() {
    // What has been set before the window is on the screen is how it appears.
    QCoreApplication::sendPostedEvents(surface_.get());
    keepOnScreens();
    surface_->stale(form_);
    switch (form_.WindowState) {
        case kWindowMinimised:
            showMinimized();
            break;
        case kWindowMaximised:
            showMaximized();
            break;
        default:
            showNormal();
            break;
    }
    waitUntilSeen();
    tellPlace();
}

void FormWindow::waitUntilSeen() {
    // The user sees the panels fill, and a dialog of the opening knows where the
    // window is.
    if (form_.WindowState == kWindowMinimised)
        return;
    waitUntil([this] { return windowHandle()->isExposed(); });
}

void FormWindow::waitUntil(const std::function<bool()>& reached) {
    constexpr int kLimitMilliseconds = 500;
    const QDeadlineTimer limit(kLimitMilliseconds);
    QTimer wake;
    wake.start(10);
    while (!reached() && !limit.hasExpired())
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents |
                                        QEventLoop::WaitForMoreEvents);
}

void FormWindow::popupMenu(std::string_view title) {
    menus_->menuOf(title).exec(QCursor::pos());
}

void FormWindow::showModal(dlgARRAY& dialog) {
    ExportDialog shown(dialog, this);
    shown.exec();
}

void FormWindow::showModal(frmAbout& about) {
    AboutBox shown(about, *this);
    about_ = &shown;
    // Also where a handler of the box fails.
    const auto gone = qScopeGuard([this] { about_ = nullptr; });
    shown.exec();
}

void FormWindow::unloaded() {
    // The dark goes with the window and is not asked: the closing refuses nothing.
    if (dimWindow_ != nullptr) {
        dimWindow_->hide();
        keys_->leaveAlone(nullptr);
        std::exchange(dimWindow_, nullptr)->deleteLater();
    }
    hide();
    QMetaObject::invokeMethod(QCoreApplication::instance(), quitBehindDialogs,
                              Qt::QueuedConnection);
}

void FormWindow::closeEvent(QCloseEvent* event) {
    // What is being drawn belongs to the session that is written now.
    mouse_->settle();
    form_.unload();
    event->accept();
}

void FormWindow::drag(Control& control) {
    if (&control == &form_) {
        // The window system moves a window best. Where it does not, the window
        // follows the pointer like any control.
        if (windowHandle() != nullptr && windowHandle()->startSystemMove())
            mouse_->lose();
        else
            mouse_->drag(*surface_);
        return;
    }
    if (about_ != nullptr && about_->shows(control))
        about_->beginDrag();
    for (const auto& face : faces_)
        if (&face->control() == &control)
            mouse_->drag(*face);
}

}  // namespace quillon
