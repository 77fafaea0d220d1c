#include "card/CardDetails.h"

#include "base/MakerAddresses.h"
#include "card/DetailsHtml.h"
#include "update/HalconReleases.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QTextBrowser>
#include <QUrl>

void showDetails(const HalconInstallation &installation, QTextBrowser &browser)
{
    browser.setText(detailsHtml(installation, QFileInfo(installation.installDir).isDir(),
                                QFileInfo(installation.exampleRoot).isDir()));
    browser.setOpenLinks(false);
}

void showRelease(const HalconInstallation &latest, const HalconInstallation &installation,
                 QTextBrowser &browser)
{
    // The details as they were before the first comparison.
    const char *const cache = "cachedHtml";
    if (browser.property(cache).toString().isEmpty()) {
        browser.setProperty(cache, browser.toHtml());
    }
    if (isNewer(latest, installation)) {
        const QString line = updateLine(latest, MakerAddresses::halconDownloads());
        browser.setHtml(withLastLine(browser.property(cache).toString(), line));
    }
}

void openDetailsLink(const QUrl &link, const HalconInstallation &installation)
{
    const QString path = link.path(QUrl::FullyDecoded);
    if (path == QLatin1String("/exampleRoot")) {
        QProcess::startDetached(QStringLiteral("explorer"), {installation.exampleRoot});
    } else if (path == QLatin1String("/installDir")) {
        QProcess::startDetached(QStringLiteral("explorer"), {installation.installDir});
    } else {
        QDesktopServices::openUrl(link);
    }
}
