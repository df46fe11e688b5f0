#include <gtest/gtest.h>

#include <QGuiApplication>

#if defined(__SANITIZE_ADDRESS__)
/// What libraries keep until the end: the encoder with which the tests make HEIC files, and text
/// recognition, whose cache can load a dictionary twice when two threads begin at once.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libx265\nleak:tesseract::DawgLoader";
}
#endif

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
