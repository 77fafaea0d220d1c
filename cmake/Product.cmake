# The names of the product and its maker: for the program, its version resources and its packages.
set(CORVANTA_NAME "Corvanta for HALCON")
set(CORVANTA_PUBLISHER "Quorvik Solutions")
set(CORVANTA_COPYRIGHT "Copyright (C) 2026 ${CORVANTA_PUBLISHER}")
set(CORVANTA_SUMMARY "Launcher and version manager for HALCON")
# The version as four numbers, for version resources.
string(REPLACE "." "," CORVANTA_VERSION_NUMBERS "${PROJECT_VERSION}.0.0.0")
string(REGEX MATCH "^[0-9]+,[0-9]+,[0-9]+,[0-9]+" CORVANTA_VERSION_NUMBERS "${CORVANTA_VERSION_NUMBERS}")

# The licence of our own code as an SPDX expression. While it is empty all rights are reserved, and no package
# but a demo can be made.
set(CORVANTA_LICENSE ""
  CACHE STRING "Licence of the program's own code (SPDX expression); empty: all rights reserved")

# Where releases are published, each in a directory named after its version.
set(CORVANTA_RELEASES "https://releases.quorvik.example/corvanta-for-halcon" CACHE STRING
    "Address below which the packages of each version are")
