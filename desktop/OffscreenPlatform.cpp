#include "desktop/OffscreenPlatform.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace quillon {

namespace {

/// One screen, and what the platform does without a configuration.
QJsonDocument configurationOf(QSize screen) {
    constexpr int kDotsPerInch = 96;
    const QJsonObject only{{QStringLiteral("name"), QString()},
                           {QStringLiteral("x"), 0},
                           {QStringLiteral("y"), 0},
                           {QStringLiteral("width"), screen.width()},
                           {QStringLiteral("height"), screen.height()},
                           {QStringLiteral("logicalDpi"), kDotsPerInch},
                           {QStringLiteral("logicalBaseDpi"), kDotsPerInch},
                           {QStringLiteral("dpr"), 1}};
    return QJsonDocument(QJsonObject{{QStringLiteral("synchronousWindowSystemEvents"), false},
                                     {QStringLiteral("windowFrameMargins"), true},
                                     {QStringLiteral("screens"), QJsonArray{only}}});
}

}  // namespace

OffscreenPlatform::OffscreenPlatform(QSize screen) {
    const QByteArray chosen = qgetenv("QT_QPA_PLATFORM");
    if (!chosen.isEmpty() && chosen != "offscreen")
        return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (!configuration_.open())
        return;
    configuration_.write(configurationOf(screen).toJson());
    configuration_.flush();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + configuration_.fileName().toUtf8());
}

}  // namespace quillon
