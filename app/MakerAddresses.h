#pragma once

#include <QString>

/// The maker's addresses, in one place. CMake's cache variables CORVANTA_WEB_DOMAIN, CORVANTA_SHOP_DOMAIN,
/// CORVANTA_VELLOXA_DOMAIN and CORVANTA_FEEDBACK_ADDRESS set them; their defaults lead to nobody.
namespace MakerAddresses {

/// The maker's web domain, such as "maker.example": the organisation domain of the application.
QString webDomain();

/// The maker's home page, ending in "/".
QString homePage();

/// The page that tells how to reach the maker.
QString contactPage();

/// The maker's product shop, ending in "/".
QString shop();

/// The page from which Velloxa can be downloaded.
QString velloxaDownloads();

/// The e-mail address for feedback.
QString feedbackAddress();

} // namespace MakerAddresses
