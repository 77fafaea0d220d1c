# What the product is called and whose it is: for the program, its version resources and its packages.
set(CORVANTA_NAME "Corvanta for HALCON")
set(CORVANTA_PUBLISHER "Quorvik Solutions")
set(CORVANTA_COPYRIGHT "Copyright (C) 2026 ${CORVANTA_PUBLISHER}")
set(CORVANTA_SUMMARY "Launcher and version manager for HALCON")
# The version as the four numbers of a version resource.
string(REPLACE "." "," CORVANTA_VERSION_NUMBERS "${PROJECT_VERSION}.0.0.0")
string(REGEX MATCH "^[0-9]+,[0-9]+,[0-9]+,[0-9]+" CORVANTA_VERSION_NUMBERS "${CORVANTA_VERSION_NUMBERS}")

# The licence of our own code as an SPDX expression. While it is empty all rights are reserved, and no package but a
# demo can be made.
set(CORVANTA_LICENSE "" CACHE STRING "Licence of the program's own code (SPDX expression); empty: all rights reserved")

# Where the packages of releases are to be had, each release in a directory named after its version.
set(CORVANTA_RELEASES "https://releases.quorvik.example/corvanta-for-halcon" CACHE STRING
    "Address below which the packages of each version are")
