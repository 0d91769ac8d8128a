#include "desktop/QtPrinter.h"

#include <QFontMetricsF>
#include <QPrinterInfo>

#include "desktop/Conversions.h"
#include "engine/PictureBox.h"
#include "engine/RunTimeError.h"

namespace quillon {

namespace {

constexpr double kTwipsPerPoint = 20;
constexpr double kTwipsPerInch = 1440;
constexpr int kLetterHeight = 200;
constexpr Integer kPortrait = 1;
constexpr Integer kLandscape = 2;

}  // namespace

QPrinter& QtPrinter::printer() {
    if (printer_)
        return *printer_;
    if (pdfFile_.isEmpty()) {
        const QPrinterInfo standard = QPrinterInfo::defaultPrinter();
        if (standard.isNull())
            throw RunTimeError(ErrorNumber::PrinterError);
        printer_ = std::make_unique<QPrinter>(standard, QPrinter::HighResolution);
    } else {
        printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
        printer_->setOutputFormat(QPrinter::PdfFormat);
        printer_->setOutputFileName(pdfFile_);
    }
    printer_->setDocName(QStringLiteral("Quillon"));
    return *printer_;
}

Integer QtPrinter::orientation() {
    return printer().pageLayout().orientation() == QPageLayout::Landscape ? kLandscape : kPortrait;
}

void QtPrinter::setOrientation(Integer orientation) {
    printer().setPageOrientation(orientation == kLandscape ? QPageLayout::Landscape
                                                           : QPageLayout::Portrait);
}

Single QtPrinter::pageWidth() {
    const QRectF paintable = printer().pageRect(QPrinter::Point);
    return static_cast<Single>(paintable.width() * kTwipsPerPoint);
}

QPainter& QtPrinter::page() {
    if (painter_.isActive())
        return painter_;
    QPrinter& device = printer();
    if (!painter_.begin(&device))
        throw RunTimeError(ErrorNumber::PrinterError);
    painter_.scale(device.logicalDpiX() / kTwipsPerInch, device.logicalDpiY() / kTwipsPerInch);
    QFont letters = toQFont(Font::Arial, 1);
    letters.setPixelSize(kLetterHeight);
    painter_.setFont(letters);
    // The outline of a panel is as wide as a pixel of the window.
    painter_.setPen(QPen(Qt::black, static_cast<qreal>(kTwipsPerPixel)));
    return painter_;
}

void QtPrinter::setCurrentPosition(Single x, Single y) {
    currentX_ = x;
    currentY_ = y;
}

void QtPrinter::print(const std::string& text) {
    QPainter& painter = page();
    const QFontMetricsF metrics(painter.font());
    painter.drawText(QPointF(currentX_, currentY_ + kLetterHeight), toQString(text));
    currentY_ += static_cast<Single>(metrics.lineSpacing());
}

void QtPrinter::paintPicture(const Bitmap& picture, Single x, Single y, Single width,
                             Single height) {
    page().drawImage(QRectF(x, y, width, height), wrapped(picture));
}

void QtPrinter::box(Single x, Single y, Single width, Single height) {
    page().drawRect(QRectF(x, y, width, height));
}

void QtPrinter::endDocument() {
    if (!painter_.isActive())
        return;
    if (!painter_.end() || printer().printerState() == QPrinter::Error)
        throw RunTimeError(ErrorNumber::PrinterError);
    currentX_ = 0;
    currentY_ = 0;
}

}  // namespace quillon
