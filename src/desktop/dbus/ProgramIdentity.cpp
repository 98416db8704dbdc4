#include "desktop/dbus/ProgramIdentity.h"

#include "desktop/SettingsFile.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

namespace lumeroom {

namespace {

/// One spelling for each file, whether it exists yet or not.
QString spelledOut(const QString& file)
{
    const QFileInfo info(file);
    const QString folder = QFileInfo(info.absolutePath()).canonicalFilePath();
    return QDir(folder.isEmpty() ? info.absolutePath() : folder).filePath(info.fileName());
}

} // namespace

QString serviceName(const QString& file)
{
    const QString path = spelledOut(file);
    if (path == spelledOut(settingsFile(false, {})))
        return bus::kService;
    if (path == spelledOut(settingsFile(true, {})))
        return bus::kService + QStringLiteral(".Demo");
    constexpr int kDigits = 12;
    const QByteArray hash = QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha256);
    return bus::kService + QStringLiteral(".Settings")
        + QString::fromLatin1(hash.toHex().left(kDigits));
}

} // namespace lumeroom
