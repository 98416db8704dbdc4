#include "desktop/MakerSite.h"

#include <QDesktopServices>
#include <QUrl>

namespace lumeroom {

namespace {

void openPage(const QString& path)
{
    QDesktopServices::openUrl(QUrl(QStringLiteral("https://www.tanagerworks.com") + path));
}

} // namespace

void visitHelp()
{
    openPage(QStringLiteral("/mac/Lumeroom/manual/index.html"));
}

void visitLumeroomHome()
{
    openPage(QStringLiteral("/mac/Lumeroom/"));
}

} // namespace lumeroom
