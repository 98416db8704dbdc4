#include "desktop/SettingsFile.h"

#include <QStandardPaths>

namespace lumeroom {

QString settingsFile(bool demo, const QString& defaultsFile)
{
    if (!defaultsFile.isEmpty())
        return defaultsFile;
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return folder + QStringLiteral("/lumeroom/")
        + (demo ? QStringLiteral("demo.plist") : QStringLiteral("com.tanagerworks.Lumeroom.plist"));
}

} // namespace lumeroom
