#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTimer>
#include <functional>

namespace quillon {

/// Calls `act` as soon as a dialog of the given kind runs its own event loop.
template <class Dialog>
void whenModal(std::function<void(Dialog&)> act) {
    QTimer::singleShot(0, qApp, [act = std::move(act)] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr)
            ADD_FAILURE() << "another dialog is on show, or none";
        else
            act(*dialog);
    });
}

}  // namespace quillon
