#pragma once

#include "app/MainWindow.h"
#include "base/MakerAddresses.h"
#include "card/SingleHalconVersionFrame.h"
#include "tests/app/WindowMachine.h"
#include "tests/support/WebServer.h"

#include <QTextBrowser>

inline const QString halconBox = "cbUpdateCheckHalcon";
inline const QString corvantaBox = "cbUpdateCheckCorvanta";
inline const QByteArray webServer = "http://www." + MakerAddresses::webDomain().toUtf8();
inline const QByteArray releaseList = webServer + "/halcon-versions.json";
inline const QByteArray ownRelease = webServer + "/corvanta-for-halcon-version.json";

/// One release in the list of releases.
inline QByteArray release(const QByteArray &version, const QByteArray &revision, const QByteArray &edition)
{
    return R"({"version": ")" + version + R"(", "revision": ")" + revision +
           R"(", "build": "0", "edition": ")" + edition + R"("})";
}

/// The list of releases.
inline QByteArray listOf(const QByteArrayList &releases)
{
    return R"({"halcon": [)" + releases.join(",") + "]}";
}

/// The details on the card of @p version.
inline QTextBrowser *details(const MainWindow &window, const QString &version)
{
    for (SingleHalconVersionFrame *card : window.findChildren<SingleHalconVersionFrame *>()) {
        if (card->installation().versionText() == version) {
            return card->findChild<QTextBrowser *>("textBrowser");
        }
    }
    return nullptr;
}

/// One HALCON is installed, and the program has never been started. A fake of the maker's web server runs on
/// loopback; the window reaches it as the application's proxy.
class UpdateMachine {
public:
    UpdateMachine() : proxy(server.asProxy())
    {
        WindowMachine::clear();
        WindowMachine::install("13.0");
    }

    WebServer server;

private:
    ApplicationProxy proxy;
};
