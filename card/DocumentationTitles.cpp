#include "card/DocumentationTitles.h"

#include <QCoreApplication>
#include <QDebug>
#include <QHash>

namespace {

/// Translates in the card's context.
struct Card {
    Q_DECLARE_TR_FUNCTIONS(SingleHalconVersionFrame)
};

} // namespace

QString beautifyDir(const QString &name)
{
    static const QHash<QString, QString> titles{
        {QStringLiteral("manuals"), Card::tr("Manuals")},
        {QStringLiteral("reference"), Card::tr("Reference")},
        {QStringLiteral("solution_guide"), Card::tr("Solution Guide")},
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
         Card::tr("Extension Package Interface Programmer's Manual")},
        {QStringLiteral("gray_value_interpolation"), Card::tr("Gray Value Interpolation")},
        {QStringLiteral("hdevelop_users_guide"), Card::tr("HDevelop User's Guide")},
        {QStringLiteral("image_acquisition_interface_programmers_manual"),
         Card::tr("Image Acquisition Interface Programmer's Manual")},
        {QStringLiteral("installation_guide"), Card::tr("Installation Guide")},
        {QStringLiteral("programmers_guide"), Card::tr("Programmer's Guide")},
        {QStringLiteral("quick_guide"), Card::tr("Quick Guide")},
        {QStringLiteral("reference_hdevelop"), Card::tr("HALCON/HDevelop Reference")},
        {QStringLiteral("solution_guide_i"), Card::tr("Solution Guide I - Basics")},
        {QStringLiteral("solution_guide_ii_a_image_acquisition"),
         Card::tr("Solution Guide II-A - Image Acquisition")},
        {QStringLiteral("solution_guide_ii_b_matching"), Card::tr("Solution Guide II-B - Matching")},
        {QStringLiteral("solution_guide_ii_c_2d_data_codes"),
         Card::tr("Solution Guide II-C - 2D Data Codes")},
        {QStringLiteral("solution_guide_ii_d_classification"),
         Card::tr("Solution Guide II-D - Classification")},
        {QStringLiteral("solution_guide_iii_a_1d_measuring"),
         Card::tr("Solution Guide III-A - 1D Measuring")},
        {QStringLiteral("solution_guide_iii_b_2d_measuring"),
         Card::tr("Solution Guide III-B - 2D Measuring")},
        {QStringLiteral("solution_guide_iii_c_3d_vision"), Card::tr("Solution Guide III-C - 3D Vision")},
    };
    const auto title = titles.find(name);
    if (title == titles.end()) {
        qWarning() << "cannot beautify unknown file name" << name << "in beautifyFilename()";
        return name;
    }
    return *title;
}
