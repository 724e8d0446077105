# Adds to what has been installed for the Debian package what only that one has: the changelog, and
# compressed manual pages (Debian Policy, 12.1 and 12.7). cpack runs this before it packs.
set(share ${CPACK_TEMPORARY_DIRECTORY}${CPACK_INSTALL_PREFIX}/share)
set(maintainer ${CPACK_DEBIAN_PACKAGE_MAINTAINER})
# Of $SOURCE_DATE_EPOCH where it is set, else now.
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
set(changelog ${share}/doc/panewright/changelog)
configure_file(${CPACK_PANEWRIGHT_CHANGELOG} ${changelog} @ONLY)
file(GLOB pages ${share}/man/man*/*)
# Without names and times, so that the same content makes the same file.
execute_process(COMMAND gzip -9nf ${changelog} ${pages} COMMAND_ERROR_IS_FATAL ANY)
