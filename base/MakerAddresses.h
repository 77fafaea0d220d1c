#pragma once

#include <QString>

/// The maker's addresses. CMake's cache variables CORVANTA_WEB_DOMAIN, CORVANTA_SHOP_DOMAIN,
/// CORVANTA_VELLOXA_DOMAIN, CORVANTA_FEEDBACK_ADDRESS and CORVANTA_HALCON_DOWNLOADS set them; the defaults
/// for the maker's own are reserved example names.
namespace MakerAddresses {

/// The maker's web domain, such as "maker.example": the organisation domain of the application.
QString webDomain();

/// The maker's home page, ending in "/".
QString homePage();

/// The maker's contact page.
QString contactPage();

/// The maker's product shop, ending in "/".
QString shop();

/// The page from which Velloxa can be downloaded.
QString velloxaDownloads();

/// The file on the maker's web server that lists the published HALCON releases.
QString halconReleaseList();

/// The file on the maker's web server that describes the newest release of this program.
QString ownRelease();

/// The page of HALCON's vendor from which HALCON can be downloaded; empty when there is to be no link to it.
QString halconDownloads();

/// The e-mail address for feedback.
QString feedbackAddress();

} // namespace MakerAddresses
