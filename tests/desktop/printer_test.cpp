#include <gtest/gtest.h>

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "desktop/Conversions.h"
#include "desktop/QtPrinter.h"
#include "engine/RunTimeError.h"

namespace quillon {
namespace {

class PdfPrinter : public ::testing::Test {
protected:
    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("page.pdf"));

    QByteArray written() const {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

TEST_F(PdfPrinter, PutsTextPicturesAndBoxesOnOnePage) {
    QtPrinter printer(path);
    const Single third = printer.pageWidth() / 3;
    printer.setCurrentPosition(0, 0);
    printer.print("FT - picture.jpg!");
    for (const Single i : {0.F, 1.F, 2.F}) {
        printer.paintPicture(Bitmap(8, 8, 0x808080), i * third, 400, third, third);
        printer.box(i * third, 400, third, third);
    }
    printer.endDocument();
    const QByteArray bytes = written();
    EXPECT_TRUE(bytes.startsWith("%PDF"));
    EXPECT_EQ(bytes.count("/Type /Page\n"), 1);
    EXPECT_GE(bytes.count("/Subtype /Image"), 1);
    EXPECT_GE(bytes.count("/Font"), 1);
}

TEST_F(PdfPrinter, NothingIsWrittenBeforeSomethingIsPrinted) {
    QtPrinter printer(path);
    printer.setOrientation(1);
    printer.setCurrentPosition(0, 0);
    printer.endDocument();
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(PdfPrinter, ThePageIsWiderInLandscape) {
    QtPrinter printer(path);
    EXPECT_EQ(printer.orientation(), 1);
    const Single portrait = printer.pageWidth();
    // Paper for letters is 8.27 to 8.5 inches wide, less the margins.
    EXPECT_GT(portrait, 7 * 1440);
    EXPECT_LE(portrait, 8.5F * 1440);
    printer.setOrientation(2);
    EXPECT_EQ(printer.orientation(), 2);
    EXPECT_GT(printer.pageWidth(), portrait * 1.2F);
    printer.setOrientation(1);
    EXPECT_EQ(printer.orientation(), 1);
}

TEST_F(PdfPrinter, AFailureIsError482) {
    QtPrinter printer(folder.filePath(QStringLiteral("missing/page.pdf")));
    try {
        printer.print("FT - ");
        FAIL() << "printing went on";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), ErrorNumber::PrinterError);
    }
}

}  // namespace
}  // namespace quillon
