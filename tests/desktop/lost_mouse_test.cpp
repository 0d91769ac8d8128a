#include <gtest/gtest.h>

#include <QApplication>
#include <QInputDialog>
#include <QMenu>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <array>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "desktop/DarkMeans.h"
#include "tests/desktop/AnsweredWindow.h"
#include "tests/desktop/OpenedWindow.h"

// Something takes the mouse away while a button is down.

namespace quillon {
namespace {

struct Gesture {
    const char* name;
    const char* widget;
    /// In panel pixels on a panel of pixel scale, else in the widget's own.
    QPoint from;
    QPoint to;
    std::function<void(Form1&)> prepare = [](Form1&) {};
};

void PrintTo(const Gesture& gesture, std::ostream* out) {
    *out << gesture.name;
}

void shapeSpectrum(Form1& form, MenuArray array, Integer entry) {
    form.click(array, entry);
    // Without it only the release reconstructs.
    form.click(MenuArray::itmOpt, 4);
}

const std::vector<Gesture>& gestures() {
    static const std::vector<Gesture> all = {
        {"Stroke", "pb1", {40, 50}, {90, 120}},
        {"Dot", "pb4", {40, 50}, {40, 50}},
        {"Lattice", "pb4", {40, 50}, {52, 47}, [](Form1& f) { f.click(MenuArray::mnuImg2b, 1); }},
        {"Roll", "pb1", {40, 50}, {70, 60}, [](Form1& f) { f.click(MenuArray::mnuImg1b, 2); }},
        {"RollOfTheReconstruction", "pb6", {40, 50}, {70, 60}},
        {"Ring",
         "pb2",
         {128, 140},
         {128, 168},
         [](Form1& f) { shapeSpectrum(f, MenuArray::mnuFT1a, 10); }},
        {"Band",
         "pb5",
         {40, 50},
         {70, 60},
         [](Form1& f) { shapeSpectrum(f, MenuArray::mnuFT2a, 12); }},
        {"Window", "", {500, 15}, {530, 35}, [](Form1& f) { f.MousePointer = kPointerFourArrows; }},
        {"Selector", "frLUT", {40, 100}, {60, 130}, [](Form1& f) { f.frLUT.Visible = true; }},
        {"TitleOfTheSelector",
         "Label2(0)",
         {10, 5},
         {30, 35},
         [](Form1& f) { f.frLUT.Visible = true; }},
        {"BandOfTheSelector",
         "pbLUT",
         {100, 12},
         {100, 34},
         [](Form1& f) { f.frLUT.Visible = true; }},
        {"HistogramBox",
         "pbh",
         {40, 40},
         {20, 30},
         [](Form1& f) {
             f.click(MenuArray::mnuImg1a, 10);
             f.MousePointer = kPointerFourArrows;
         }},
        {"CrossOfTheHistogram",
         "lbHIS",
         {5, 5},
         {6, 6},
         [](Form1& f) { f.click(MenuArray::mnuImg1a, 10); }},
        {"HeldControl", "lbBR1(1)", {5, 5}, {6, 6}},
        {"HeldControlUnderASurface",
         "lbBR1(0)",
         {5, 5},
         {6, 6},
         [](Form1& f) { f.click(MenuArray::mnuNew1a, 10); }},
    };
    return all;
}

struct Loss {
    const char* name;
    std::function<void(FormWindow&, QWidget& held)> happen;
    std::function<void(FormWindow&)> undo = [](FormWindow&) {};
};

void PrintTo(const Loss& loss, std::ostream* out) {
    *out << loss.name;
}

const std::vector<Loss>& losses() {
    static const std::vector<Loss> all = {
        {"DeactivatedWindow",
         [](FormWindow&, QWidget&) {
             QWidget other;
             other.show();
             other.activateWindow();
             EXPECT_TRUE(QTest::qWaitForWindowActive(&other));
         },
         [](FormWindow& window) { window.activateWindow(); }},
        {"HiddenWindow", [](FormWindow& window, QWidget&) { window.hide(); },
         [](FormWindow& window) { window.QWidget::show(); }},
        {"MinimisedWindow", [](FormWindow& window, QWidget&) { window.showMinimized(); },
         [](FormWindow& window) { window.showNormal(); }},
        {"HiddenControl", [](FormWindow&, QWidget& held) { held.hide(); }, [](FormWindow&) {}},
        {"Dialog",
         [](FormWindow& window, QWidget&) {
             QMessageBox box(&window);
             QTimer::singleShot(0, &box, &QMessageBox::accept);
             box.exec();
         }},
        {"PopUp",
         [](FormWindow& window, QWidget&) {
             QMenu menu(&window);
             menu.addAction(QStringLiteral("entry"));
             menu.popup({10, 10});
             QCoreApplication::processEvents();
             menu.close();
         }},
        {"LostGrab",
         [](FormWindow&, QWidget& held) {
             QEvent lost(QEvent::UngrabMouse);
             QCoreApplication::sendEvent(&held, &lost);
         }},
        {"InactiveProgram",
         [](FormWindow&, QWidget&) {
             QApplicationStateChangeEvent inactive(Qt::ApplicationInactive);
             QCoreApplication::sendEvent(qApp, &inactive);
         }},
    };
    return all;
}

/// What a release can change, in words; pictures as a sum over their words.
class Snapshot {
public:
    Snapshot(Form1& form, FormWindow& window) {
        for (Integer i = 1; i <= 6; ++i) {
            const PictureBox& panel = form.lab.panel(i);
            add("pb" + std::to_string(i), sumOf(panel.shown()));
            add("picture", sumOf(panel.Picture()));
            add("pointer", panel.MousePointer);
        }
        for (clComplexImage* channel : {&form.lab.channel1, &form.lab.channel2}) {
            add("factor", channel->getIntFac());
            add("radius", channel->filter_rad);
            add("masks", channel->nmask);
            std::array<Single, 4> mask{};
            for (Integer i = 0; i < channel->nmask; ++i) {
                channel->GetMask(i, mask);
                for (const Single side : mask)
                    add("side", side);
            }
        }
        for (const auto& row : form.lattice)
            for (const Single cell : row)
                add("lattice", cell);
        for (const Control* box :
             std::initializer_list<const Control*>{&form, &form.frLUT, &form.pbh}) {
            add(box->Name, box->Left);
            add("top", box->Top);
            add("visible", box->Visible.get());
            add("pointer", box->MousePointer);
        }
        add("window", window.x());
        add("window", window.y());
        add("mem", form.mem.Tag);
        add("timer", form.Timer1.Enabled.get());
        add("tag", form.Timer1.Tag);
        for (const Frame* frame : {&form.fr2, &form.fr5})
            add("caption", frame->Caption.get() + frame->Tag);
    }
    friend bool operator==(const Snapshot& a, const Snapshot& b) { return a.lines_ == b.lines_; }
    friend std::ostream& operator<<(std::ostream& out, const Snapshot& shot) {
        for (const std::string& line : shot.lines_)
            out << line << "; ";
        return out;
    }

private:
    template <class Value>
    void add(const std::string& what, const Value& value) {
        std::ostringstream line;
        line << what << "=" << value;
        lines_.push_back(line.str());
    }
    static std::uint64_t sumOf(const Bitmap& picture) {
        std::uint64_t sum = 14695981039346656037U;
        for (const PixelWord word : picture.words)
            sum = (sum ^ static_cast<std::uint32_t>(word)) * 1099511628211U;
        return sum;
    }

    std::vector<std::string> lines_;
};

class LostMouse : public OpenedWindow {
protected:
    QWidget& widgetOf(const Gesture& gesture) {
        return *gesture.widget == '\0' ? *window().widgetOf(form()) : widget(gesture.widget);
    }
    /// The point of the screen that was this one of the widget before it was dragged.
    QPointF point(const Gesture& gesture, QPoint at) {
        auto* shown = dynamic_cast<PanelWidget*>(&widgetOf(gesture));
        const QPointF there = shown != nullptr ? pixel(*shown, at.x(), at.y()) : QPointF(at);
        return there + corner_ - cornerOf(gesture);
    }
    QPointF cornerOf(const Gesture& gesture) { return widgetOf(gesture).mapToGlobal(QPointF()); }
    void begin(const Gesture& gesture) {
        gesture.prepare(form());
        settle();
        corner_ = cornerOf(gesture);
        press(widgetOf(gesture), point(gesture, gesture.from));
        if (gesture.from != gesture.to)
            move(widgetOf(gesture), point(gesture, gesture.to));
    }
    Snapshot seen() {
        settle();
        return {form(), window()};
    }
    /// What both channels have computed, so that nothing runs unseen.
    std::vector<std::uint64_t> computed() {
        return {form().lab.channel1.spectrum().revision(),
                form().lab.channel1.reconstruction().revision(),
                form().lab.channel2.spectrum().revision(),
                form().lab.channel2.reconstruction().revision()};
    }
    /// The same gesture as the hand ends it.
    Snapshot afterOwnRelease(const Gesture& gesture) {
        begin(gesture);
        release(widgetOf(gesture), point(gesture, gesture.to));
        Snapshot shot = seen();
        open();
        return shot;
    }
    void expectOneRelease(const Gesture& gesture, const Loss& loss, const Snapshot& expected) {
        SCOPED_TRACE(std::string(gesture.name) + ", " + loss.name);
        begin(gesture);
        loss.happen(window(), widgetOf(gesture));
        const Snapshot lost = seen();
        EXPECT_EQ(lost, expected) << "what the release of a hand does";
        loss.undo(window());
        settle();
        const Snapshot again = seen();
        const auto before = computed();
        // The hand goes on with the button down, and lets go much later.
        QWidget& held = widgetOf(gesture);
        for (const QPoint way : {QPoint(9, 7), QPoint(-20, 30)})
            move(held, point(gesture, gesture.to + way));
        release(held, point(gesture, gesture.to + QPoint(-20, 30)));
        EXPECT_EQ(seen(), again) << "nothing happens a second time";
        EXPECT_EQ(computed(), before);
    }

private:
    QPointF corner_;
};

class LostGesture : public LostMouse, public ::testing::WithParamInterface<Gesture> {};

TEST_P(LostGesture, GetsItsReleaseOnceAtTheLastDeliveredPoint) {
    const Snapshot expected = afterOwnRelease(GetParam());
    // The window of this one stays where it is.
    for (const Loss* loss : {&losses()[0], &losses()[4]}) {
        expectOneRelease(GetParam(), *loss, expected);
        open();
    }
}

INSTANTIATE_TEST_SUITE_P(All, LostGesture, ::testing::ValuesIn(gestures()),
                         [](const auto& tested) { return std::string(tested.param.name); });

class MouseLostBy : public LostMouse, public ::testing::WithParamInterface<Loss> {};

TEST_P(MouseLostBy, EndsAStrokeAndAHeldControl) {
    for (const std::size_t which : {std::size_t{0}, gestures().size() - 2}) {
        const Gesture& gesture = gestures()[which];
        const Snapshot expected = afterOwnRelease(gesture);
        expectOneRelease(gesture, GetParam(), expected);
        open();
    }
}

INSTANTIATE_TEST_SUITE_P(All, MouseLostBy, ::testing::ValuesIn(losses()),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST_F(LostMouse, AMoveWithoutTheButtonTellsOfAReleaseThatNobodyBrought) {
    const Gesture& stroke = gestures()[0];
    const Snapshot expected = afterOwnRelease(stroke);
    begin(stroke);
    QWidget& held = widgetOf(stroke);
    const QPointF off = point(stroke, {200, 200});
    QMouseEvent hover(QEvent::MouseMove, off, held.mapToGlobal(off), Qt::NoButton, Qt::NoButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&held, &hover);
    EXPECT_EQ(seen(), expected);
    EXPECT_TRUE(form().lbSTB(1).Caption.get().starts_with("[200,200]"))
        << "the move itself is delivered behind it";
}

TEST_F(LostMouse, AnotherPressBringsTheReleaseThatWasMissing) {
    begin(gestures()[0]);
    EXPECT_NE(form().pb1.Picture(), form().pb1.Image());
    QWidget& other = widget("btLUT");
    const QPointF at(5, 5);
    QMouseEvent pressed(QEvent::MouseButtonPress, at, other.mapToGlobal(at), Qt::LeftButton,
                        Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&other, &pressed);
    EXPECT_EQ(form().pb1.Picture(), form().pb1.Image());
}

TEST_F(LostMouse, TheKeyboardThatGoesToTheDarkLeavesTheMouseWhereItIs) {
    window().setDarkMeans(DarkMeans::PaintedScreen);
    form().KeyPress('l');
    settle();
    ASSERT_TRUE(form().dim.isLoaded());
    window().activateWindow();
    settle();
    press(panel("pb1"), pixel(panel("pb1"), 40, 50));
    settle();
    EXPECT_NE(QApplication::activeWindow(), &window()) << "the dark has taken the keyboard back";
    move(panel("pb1"), pixel(panel("pb1"), 90, 120));
    EXPECT_NE(form().pb1.Picture(), form().pb1.Image()) << "the stroke goes on";
    release(panel("pb1"), pixel(panel("pb1"), 90, 120));
    EXPECT_EQ(form().pb1.Picture(), form().pb1.Image());
}

TEST_F(LostMouse, AClosingWindowGetsTheReleaseBeforeItsSessionIsWritten) {
    begin(gestures()[0]);
    window().close();
    EXPECT_EQ(form().pb1.Picture(), form().pb1.Image());
    EXPECT_EQ(recording.dialogs.messages.size(), 2U) << "those of the first start";
}

/// The boxes are the real ones and open from within a handler.
class LostToABox : public AnsweredWindow {
protected:
    void SetUp() override {
        AnsweredWindow::SetUp();
        // A dim image allows of a factor with which the draw of a bright one overflows.
        lay(0x010101);
        form().lab.channel1.CalculateAll();
        form().lab.channel1.setIntFac(1e36F);
    }
    void lay(PixelWord word) {
        Bitmap even(256, 256);
        std::ranges::fill(even.words, word);
        form().pb1.setPicture(even);
    }
    /// Enter recalculates, and each draw of the spectrum fails with a box.
    void failAtEnter(std::function<void()> inTheBox) {
        answers.nextMessage("Error in DrawFT: Overflow", "Quillon", QMessageBox::NoIcon,
                            QMessageBox::Ok, std::move(inTheBox));
        QTest::keyClick(window().windowHandle(), Qt::Key_Return);
        EXPECT_TRUE(answers.empty());
    }
    std::string caption() { return form().fr2.Caption; }
};

TEST_F(LostToABox, AHeldControlStopsBeforeTheBoxAndIsReleasedBehindTheHandler) {
    QWidget& plus = widget("lbBR1(1)");
    press(plus, {5, 5});
    EXPECT_TRUE(form().Timer1.Enabled);
    const std::string factor = form().lab.channel1.getIntFac();
    lay(0xFFFFFF);
    failAtEnter([&] {
        EXPECT_FALSE(form().Timer1.Enabled) << "no tick can open a further box";
        EXPECT_NE(caption(), "Fourier Transform") << "the handler has not returned";
    });
    EXPECT_EQ(caption(), "Fourier Transform");
    EXPECT_EQ(form().Timer1.Tag, "");
    EXPECT_EQ(form().lab.channel1.getIntFac(), factor);
    form().fr2.Caption = std::string("untouched");
    release(plus, {5, 5});
    EXPECT_EQ(caption(), "untouched");
}

TEST_F(LostToABox, AStrokeIsCommittedBehindTheHandler) {
    lay(0xFFFFFF);
    // The ink of an inverted image is black.
    form().lab.channel1.SetInvert(0, true);
    PanelWidget& image = panel("pb1");
    press(image, pixel(image, 40, 50));
    move(image, pixel(image, 90, 120));
    // The release transforms, and its draw fails in the same way.
    failAtEnter([&] {
        EXPECT_NE(form().pb1.Picture(), form().pb1.Image());
        answers.nextMessage("Error in DrawFT: Overflow", "Quillon", QMessageBox::NoIcon,
                            QMessageBox::Ok,
                            [&] { EXPECT_NE(form().pb1.Picture(), form().pb1.Image()); });
    });
    EXPECT_EQ(form().pb1.Picture(), form().pb1.Image());
    const Bitmap drawn = form().pb1.Image();
    move(image, pixel(image, 200, 10));
    release(image, pixel(image, 200, 10));
    EXPECT_EQ(form().pb1.Image(), drawn);
}

TEST_F(LostToABox, TheQuestionForAFactorTakesTheReleaseOfItsOwnPress) {
    form().fr2.Caption = std::string("before");
    answers.next<QInputDialog>([&](QInputDialog& box) {
        EXPECT_EQ(caption(), "before");
        box.setTextValue(QStringLiteral("3"));
        box.accept();
    });
    press(widget("lbBR1(1)"), {5, 5}, Qt::RightButton);
    EXPECT_EQ(form().lab.channel1.getIntFac(), "3.00 (sqrt)");
    EXPECT_EQ(caption(), "Fourier Transform") << "as a release of any button does";
    form().fr2.Caption = std::string("after");
    release(widget("lbBR1(1)"), {5, 5}, Qt::RightButton);
    EXPECT_EQ(caption(), "after");
}

}  // namespace
}  // namespace quillon
