# What an installation holds besides the programs and the rule files, and the Debian package.
install(FILES packaging/fiscarel-sg.desktop DESTINATION share/applications)
install(FILES packaging/fiscarel-sg.metainfo.xml DESTINATION share/metainfo)
install(FILES packaging/fiscarel-sg.svg DESTINATION share/icons/hicolor/scalable/apps)

install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" DESTINATION share/doc/fiscarel-sg RENAME copyright)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_NAME fiscarel-sg)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_CONTACT "Fiscarel SG <fiscarel-sg@localhost>")
set(CPACK_PACKAGE_DESCRIPTION
    "Computes the tax while the figures are entered, explains every amount with its legal basis,
checks the entries and finds what can be saved. Everything stays on the user's machine.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "fonts-inter, fonts-roboto-unhinted, qt6-qpa-plugins, qt6-translations-l10n, poppler-data, tesseract-ocr-deu, tesseract-ocr-fra, tesseract-ocr-ita, tesseract-ocr-eng, tesseract-ocr-osd")
include(CPack)
