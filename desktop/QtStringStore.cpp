#include "desktop/QtStringStore.h"

#include <QSettings>
#include <QStandardPaths>

#include "desktop/Conversions.h"

namespace quillon {

namespace {

/// What the toolkit's native store is called for a key path. The settings folder
/// is looked up at each access, like the key of a registry.
QString storeName(const std::string& key) {
#ifdef Q_OS_WIN
    return QStringLiteral("HKEY_CURRENT_USER\\") + toQString(key);
#else
    return QStringLiteral("%1/%2.conf")
        .arg(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation),
             toQString(key).replace(u'\\', u'/').section(u'/', -2));
#endif
}

}  // namespace

std::string QtStringStore::read(const std::string& key, const std::string& name) {
    const QSettings settings(storeName(key), QSettings::NativeFormat);
    const QVariant value = settings.value(toQString(name));
    // A value that somebody has typed with commas is read as a list.
    if (value.typeId() == QMetaType::QStringList)
        return toBytes(value.toStringList().join(QStringLiteral(", ")));
    return toBytes(value.toString());
}

void QtStringStore::write(const std::string& key, const std::string& name,
                          const std::string& value) {
    QSettings settings(storeName(key), QSettings::NativeFormat);
    settings.setValue(toQString(name), toQString(value));
}

void QtStringStore::writeNumber(const std::string& key, const std::string& name, Long value) {
    QSettings settings(storeName(key), QSettings::NativeFormat);
    settings.setValue(toQString(name), QVariant(static_cast<int>(value)));
}

}  // namespace quillon
