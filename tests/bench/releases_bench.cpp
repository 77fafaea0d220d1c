// How long the list of HALCON's releases takes, against parsing it as JSON alone.

#include "tests/bench/Figures.h"
#include "update/HalconReleases.h"

#include <QJsonDocument>

#include <cstdio>

namespace {

constexpr int releases = 20000;

QByteArray manyReleases()
{
    QByteArray elements;
    for (int i = 0; i < releases; ++i) {
        elements += QString(R"(%1{"version": "%2.%3", "revision": "%4", "build": "%5"})")
                        .arg(i == 0 ? "" : ",\n")
                        .arg(10 + i % 20)
                        .arg(i / 20)
                        .arg(i % 7)
                        .arg(i % 5)
                        .toUtf8();
    }
    return "{\"halcon\": [" + elements + "]}";
}

} // namespace

int main()
{
    const QByteArray bytes = manyReleases();
    bool parsed = true;
    compareTimes(
        "20,000 releases", [&] { parsed = parsed && QJsonDocument::fromJson(bytes).isObject(); },
        [&] {
            QStringList log;
            parsed = parsed && parseHalconReleases(bytes, &log).regular.size() == releases;
        });
    if (!parsed) {
        std::fprintf(stderr, "releases-bench: the list cannot be read\n");
    }
    return parsed ? 0 : 1;
}
