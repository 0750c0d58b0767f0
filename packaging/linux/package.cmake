# What an installed Vellumo brings besides its programs, samples and templates, and how CPack makes a Debian package of
# all. packaging/linux/build makes it.

# The programs read what other people wrote.
target_compile_options(vellumo_options INTERFACE
    $<$<CONFIG:Release>:-fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2>)
target_link_options(vellumo_options INTERFACE $<$<CONFIG:Release>:LINKER:-z,relro,-z,now>)

set(PACKAGED ${CMAKE_BINARY_DIR}/packaging)
file(MAKE_DIRECTORY ${PACKAGED})

# Makes TO from FROM as Debian wants its pages and changelogs: without name and time, so that the same comes out each time.
function(compress FROM TO)
    execute_process(COMMAND gzip -9nc INPUT_FILE ${FROM} OUTPUT_FILE ${PACKAGED}/${TO} COMMAND_ERROR_IS_FATAL ANY)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${FROM})
endfunction()

foreach(SIZE 16 24 32 48 64 128 256)
    install(FILES packaging/icon/vellumo-${SIZE}.png
        DESTINATION share/icons/hicolor/${SIZE}x${SIZE}/apps RENAME vellumo.png)
endforeach()
install(FILES packaging/icon/vellumo.svg DESTINATION share/icons/hicolor/scalable/apps)
install(FILES packaging/linux/vellumo.desktop DESTINATION share/applications)
install(FILES packaging/linux/vellumo.xml DESTINATION share/mime/packages)
install(FILES packaging/linux/lintian-overrides DESTINATION share/lintian/overrides RENAME vellumo)

find_program(GZIP gzip)
if(GZIP)
    foreach(PAGE vellumo.1 vellumo-cli.1)
        compress(${CMAKE_SOURCE_DIR}/packaging/linux/${PAGE} ${PAGE}.gz)
        install(FILES ${PACKAGED}/${PAGE}.gz DESTINATION share/man/man1)
    endforeach()
    compress(${CMAKE_SOURCE_DIR}/packaging/linux/changelog changelog.Debian.gz)
    compress(${CMAKE_SOURCE_DIR}/CHANGELOG.md changelog.gz)
    install(FILES ${PACKAGED}/changelog.Debian.gz ${PACKAGED}/changelog.gz DESTINATION share/doc/vellumo)
endif()

# Responses to go with the samples, for the examples of the man page.
file(GLOB RESPONSES CONFIGURE_DEPENDS samples/*.responses.csv)
install(FILES ${RESPONSES} DESTINATION share/vellumo/samples)
install(FILES docs/file-format.md docs/template-language.md DESTINATION share/doc/vellumo)

# Debian's form of the licence: set in by a blank, an empty line is a dot.
file(STRINGS LICENSE LICENSE_LINES)
string(REGEX MATCH "Copyright \\(c\\) [^;]*" COPYRIGHT "${LICENSE_LINES}")
string(REGEX REPLACE "^Copyright \\(c\\) " "" COPYRIGHT "${COPYRIGHT}")
file(READ LICENSE LICENSE_TEXT)
string(REGEX REPLACE "^.*(Permission is hereby)" "\\1" LICENSE_TEXT "${LICENSE_TEXT}")
string(REGEX REPLACE "\n+$" "" LICENSE_TEXT "${LICENSE_TEXT}")
string(REPLACE "\n\n" "\n.\n" LICENSE_TEXT "${LICENSE_TEXT}")
string(REPLACE "\n" "\n " LICENSE_TEXT "${LICENSE_TEXT}")
configure_file(packaging/linux/copyright.in ${PACKAGED}/copyright @ONLY)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS LICENSE)
install(FILES ${PACKAGED}/copyright DESTINATION share/doc/vellumo)

# packaging/linux/build has built the two programs; tests and benchmarks have no place in the package.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vellumo)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "The Vellumo authors <vellumo@example.com>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "write, give and score questionnaires")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What the programs start when it is there: xdg-open shows pages and workbooks.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "libreoffice-calc, libreoffice-writer, qt6-wayland")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Vellumo is for one person - a clinician, a researcher, a teacher - who
writes questionnaires (tests), gives them to a client at the keyboard, scores
them, and reads, files and prints the report. It works offline.
.
A test has up to 500 questions, multichoice or with short or long answers,
sub-scales, and ranges of scores with their texts. Results are collected in a
workbook, without the need of a spreadsheet program, and a test can be put on
a web page or on paper.
.
The command-line tool vellumo-cli reads, checks, administers, scores and
reports tests without a window.")
include(CPack)
