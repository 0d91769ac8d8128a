#include <gtest/gtest.h>

#include <QFontMetrics>
#include <QImage>
#include <QPixmap>

#include "desktop/Conversions.h"
#include "tests/desktop/OpenedWindow.h"

// The factor in the caption of a spectrum's frame while [-] or [+] is held.

namespace quillon {
namespace {

struct Held {
    const char* frame;
    const char* minus;
    const char* plus;
};

constexpr Held kChannels[] = {{"fr2", "lbBR1(0)", "lbBR1(1)"}, {"fr5", "lbBR2(0)", "lbBR2(1)"}};

class IntensityCaption : public OpenedWindow {
protected:
    /// What a frame itself paints, without the controls on it.
    QImage ground(const char* name) {
        QWidget& frame = widget(name);
        QImage image(frame.size(), QImage::Format_RGB32);
        frame.render(&image, {}, {}, QWidget::DrawWindowBackground);
        return image;
    }
    void enterCaption(const std::string& caption) {
        form().fr5.Caption = caption;
        settle();
    }
    void enterFactor(const Held& channel, const std::string& factor) {
        recording.dialogs.answerInput(factor);
        QWidget& plus = widget(channel.plus);
        press(plus, QRectF(plus.rect()).center(), Qt::RightButton);
        release(plus, QRectF(plus.rect()).center(), Qt::RightButton);
        settle();
    }
};

TEST_F(IntensityCaption, EndsBeforeTheControlsHoweverLongTheFactorIs) {
    for (const Held& channel : kChannels)
        for (const char* factor :
             {"7", "123456789", "1234567890123456", "99999999999999999999999999",
              "999999999999999999999999999999999"}) {
            SCOPED_TRACE(std::string(channel.frame) + " " + factor);
            const QImage bare = ground(channel.frame);
            enterFactor(channel, factor);
            QWidget& plus = widget(channel.plus);
            press(plus, QRectF(plus.rect()).center());
            settle();
            ASSERT_TRUE(
                form().control(channel.frame).Caption.get().starts_with("Intensity Factor: "));
            const QImage held = ground(channel.frame);
            const int controls = widget(channel.minus).x();
            EXPECT_NE(held, bare);
            const QRect right(controls - 1, 0, held.width() - controls + 1, widget("pb2").y());
            EXPECT_EQ(held.copy(right), bare.copy(right)) << "nothing of the caption is below them";
            release(plus, QRectF(plus.rect()).center());
            settle();
            EXPECT_EQ(ground(channel.frame), bare);
        }
}

TEST_F(IntensityCaption, ThatHasRoomIsNotSqueezed) {
    const std::string caption = "Intensity Factor: 7.77 (sqrt)";
    enterCaption("");
    const QImage bare = ground("fr5");
    enterCaption(caption);
    const QImage shown = ground("fr5");
    int end = 0;
    for (int x = 0; x < bare.width(); ++x)
        for (int y = 0; y < widget("pb5").y(); ++y)
            if (shown.pixel(x, y) != bare.pixel(x, y))
                end = x + 1;
    const QFontMetrics metrics(toQFont(form().fr5.FontName, form().fr5.FontSize));
    // It begins 9 pixels from the frame's edge, and the border goes on 3 behind it.
    EXPECT_EQ(end, 9 + metrics.horizontalAdvance(toQString(caption)) + 3);
}

}  // namespace
}  // namespace quillon
