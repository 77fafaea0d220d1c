#include "card/DocumentationTitles.h"

#include <QCoreApplication>
#include <QDebug>
#include <QHash>

namespace {

QString translate(const char *text)
{
    return QCoreApplication::translate("SingleHalconVersionFrame", text);
}

} // namespace

QString beautifyDir(const QString &name)
{
    static const QHash<QString, QString> titles{
        {QStringLiteral("manuals"), translate("Manuals")},
        {QStringLiteral("reference"), translate("Reference")},
        {QStringLiteral("solution_guide"), translate("Solution Guide")},
    };
    const auto title = titles.find(name);
    if (title == titles.end()) {
        qWarning() << "cannot beautify unknown directory name" << name << "in beautifyDir()";
        return name;
    }
    return *title;
}

QString beautifyFilename(const QString &name)
{
    static const QHash<QString, QString> titles{
        {QStringLiteral("extension_package_programmers_manual"),
         translate("Extension Package Interface Programmer's Manual")},
        {QStringLiteral("gray_value_interpolation"), translate("Gray Value Interpolation")},
        {QStringLiteral("hdevelop_users_guide"), translate("HDevelop User's Guide")},
        {QStringLiteral("image_acquisition_interface_programmers_manual"),
         translate("Image Acquisition Interface Programmer's Manual")},
        {QStringLiteral("installation_guide"), translate("Installation Guide")},
        {QStringLiteral("programmers_guide"), translate("Programmer's Guide")},
        {QStringLiteral("quick_guide"), translate("Quick Guide")},
        {QStringLiteral("reference_hdevelop"), translate("HALCON/HDevelop Reference")},
        {QStringLiteral("solution_guide_i"), translate("Solution Guide I - Basics")},
        {QStringLiteral("solution_guide_ii_a_image_acquisition"),
         translate("Solution Guide II-A - Image Acquisition")},
        {QStringLiteral("solution_guide_ii_b_matching"), translate("Solution Guide II-B - Matching")},
        {QStringLiteral("solution_guide_ii_c_2d_data_codes"),
         translate("Solution Guide II-C - 2D Data Codes")},
        {QStringLiteral("solution_guide_ii_d_classification"),
         translate("Solution Guide II-D - Classification")},
        {QStringLiteral("solution_guide_iii_a_1d_measuring"),
         translate("Solution Guide III-A - 1D Measuring")},
        {QStringLiteral("solution_guide_iii_b_2d_measuring"),
         translate("Solution Guide III-B - 2D Measuring")},
        {QStringLiteral("solution_guide_iii_c_3d_vision"), translate("Solution Guide III-C - 3D Vision")},
    };
    const auto title = titles.find(name);
    if (title == titles.end()) {
        qWarning() << "cannot beautify unknown file name" << name << "in beautifyFilename()";
        return name;
    }
    return *title;
}
