#pragma once

#include <QString>
#include <QVariant>
#include <QWidget>
#include <functional>

namespace quillon {

// The door of a module that asks a page in the browser what it shows. The tests
// load it as the program loads the browser: linked to the engine they could not
// tell whether the program does without it.

inline constexpr const char* kProbeModule = "quillon_page_probe";
inline constexpr const char* kProbeDoor = "quillonAskPage";
/// Lets the page of a browser's widget compute an expression of its language. The
/// answer comes later, or never if the page goes away before.
using ProbeDoor = void (*)(QWidget* browser, const QString& expression,
                           const std::function<void(const QVariant&)>& answer);

}  // namespace quillon
