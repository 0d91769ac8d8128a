#include <gtest/gtest.h>
#include "desktop/Conversions.h"
#include "tests/desktop/BrowserWindow.h"
namespace quillon { namespace {
class Shots : public BrowserWindow {
protected:
    void SetUp() override { openWith(PaneKind::Browser); }
    void shot(const char* name) { settle(); window().grab().save(QStringLiteral("/tmp/q/small_shots/%1.png").arg(QLatin1String(name))); }
    void factor(const char* label, const char* f) {
        recording.dialogs.answerInput(f);
        QWidget& w = widget(label);
        press(w, QRectF(w.rect()).center(), Qt::RightButton);
        release(w, QRectF(w.rect()).center(), Qt::RightButton);
        settle();
    }
};
TEST_F(Shots, All) {
    chooseOn("pb1", "mnuImg1a(10)");
    shot("hist_sample");
    Bitmap picture(256, 256, 0x0A0A0A);
    std::fill_n(picture.words.begin(), picture.words.size() / 2, PixelWord{0xF8F8F8});
    form().pb1.setPicture(picture);
    chooseOn("pb1", "mnuImg1a(10)");
    shot("hist_full");
    for (Integer s : {0, 1, 3, 4}) { form().click(MenuArray::itmOpt0, s); shot(("hist_full" + std::to_string(s)).c_str()); }
    form().click(MenuArray::itmOpt0, 2);
    form().pbh.Visible = false;
    for (const char* f : {"7", "1234567890123456", "99999999999999999999999999", "999999999999999999999999999999999"}) {
        factor("lbBR1(1)", f);
        QWidget& plus = widget("lbBR2(1)");
        press(plus, QRectF(plus.rect()).center());
        shot((std::string("cap") + std::to_string(strlen(f))).c_str());
        release(plus, QRectF(plus.rect()).center());
    }
    move(panel("pb2"), pixel(panel("pb2"), 100, 100)); settle();
    shot("cell0");
    form().LoadPanelImage(1, form().lab.folders.ImagePath + "Halvard-Image2.jpg");
    shot("cell0b");
    showTutorial();
    form().itm10a(4);
}
TEST_F(Shots, Pages) {
    showTutorial();
    wait([&]{ return pane().property("title").toString().startsWith("Pictures"); });
    QTest::qWait(1500); shot("tut_en");
    form().click(MenuArray::itmOpt1, 1); QTest::qWait(1500); shot("tut_fr");
    for (Integer i : {4,5,6}) { form().itm10a(i); QTest::qWait(2500); shot(("ond_fr" + std::to_string(i)).c_str()); }
    form().click(MenuArray::itmOpt1, 0); QTest::qWait(1500); shot("ond_en6");
}
} }
