#pragma once

#include <QPainter>
#include <QPrinter>
#include <memory>

#include "engine/Desktop.h"

namespace quillon {

/// The user's default printer, or a PDF file in its stead. The page begins with
/// the first thing put on it and leaves the printer with endDocument.
class QtPrinter : public Printer {
public:
    /// Prints into a PDF file; an empty name is the default printer.
    explicit QtPrinter(const QString& pdfFile = {}) : pdfFile_(pdfFile) {}

    Integer orientation() override;
    void setOrientation(Integer orientation) override;
    Single pageWidth() override;
    void setCurrentPosition(Single x, Single y) override;
    void print(const std::string& text) override;
    void paintPicture(const Bitmap& picture, Single x, Single y, Single width,
                      Single height) override;
    void box(Single x, Single y, Single width, Single height) override;
    void endDocument() override;

private:
    /// The printer, looked for when it is first asked for; throws PrinterError.
    QPrinter& printer();
    /// The painter of the page under way, in twips; begins the page.
    QPainter& page();

    QString pdfFile_;
    std::unique_ptr<QPrinter> printer_;
    QPainter painter_;
    Single currentX_ = 0;
    Single currentY_ = 0;
};

}  // namespace quillon
