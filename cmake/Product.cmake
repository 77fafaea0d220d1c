# What the product is called and whose it is: for the program, its version resources and its packages.
set(CORVANTA_NAME "Corvanta for HALCON")
set(CORVANTA_PUBLISHER "Quorvik Solutions")
set(CORVANTA_COPYRIGHT "Copyright (C) 2026 ${CORVANTA_PUBLISHER}")

# The licence of our own code as an SPDX expression. While it is empty all rights are reserved, and no package but a
# demo can be made.
set(CORVANTA_LICENSE "" CACHE STRING "Licence of the program's own code (SPDX expression); empty: all rights reserved")
