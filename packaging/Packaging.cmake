# What an installation holds besides the programs and the rule files, and the Debian package.
install(FILES packaging/fiscarel-sg.desktop DESTINATION share/applications)
install(FILES packaging/fiscarel-sg.metainfo.xml DESTINATION share/metainfo)
install(FILES packaging/fiscarel-sg.svg DESTINATION share/icons/hicolor/scalable/apps)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME fiscarel-sg)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_CONTACT "Fiscarel SG <fiscarel-sg@localhost>")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-inter, qt6-qpa-plugins")
include(CPack)
