# Who makes the program, for base/MakerAddresses.h. The defaults are reserved example names, so that no build
# talks to a third party's server.
set(CORVANTA_WEB_DOMAIN "quorvik.example" CACHE STRING "The maker's web domain, without www")
set(CORVANTA_SHOP_DOMAIN "shop.quorvik.example"
  CACHE STRING "Domain of the maker's product shop, without www")
set(CORVANTA_VELLOXA_DOMAIN "velloxa.example" CACHE STRING "Domain of Velloxa's web site, without www")
set(CORVANTA_FEEDBACK_ADDRESS "feedback@quorvik.example" CACHE STRING "E-mail address for feedback")
set(CORVANTA_HALCON_DOWNLOADS "http://www.mvtec.com/download/halcon/" CACHE STRING
    "Address of HALCON's download page; may be empty")
