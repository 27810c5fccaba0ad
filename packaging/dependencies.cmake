# SPDX-FileCopyrightText: 2026 Provender developers
# SPDX-License-Identifier: MIT

# Read by cpack before it makes the package: what the package depends on. dpkg-shlibdeps tells what the programs are
# linked with; CPack's own call of it would first ask `file` about each of the 7,801 food files, which takes over a
# minute. The platform plugin for X is loaded at run time; it is in libqt6gui6 itself.
set(folder ${CPACK_PACKAGE_DIRECTORY}/shlibdeps)
file(WRITE ${folder}/debian/control "Source: provender\nPackage: provender\nArchitecture: any\n")
file(MAKE_DIRECTORY ${folder}/debian/provender/DEBIAN)
file(COPY ${CPACK_PROVENDER_PROGRAMS} DESTINATION ${folder}/debian/provender/usr/bin)
execute_process(COMMAND dpkg-shlibdeps -O debian/provender/usr/bin/provender debian/provender/usr/bin/provender-export
                WORKING_DIRECTORY ${folder} OUTPUT_VARIABLE answer OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
if(NOT answer MATCHES "^shlibs:Depends=(.+)$")
  message(FATAL_ERROR "dpkg-shlibdeps said: ${answer}")
endif()
set(CPACK_DEBIAN_PACKAGE_DEPENDS "${CMAKE_MATCH_1}")
