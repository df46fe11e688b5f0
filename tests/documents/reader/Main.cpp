#include <gtest/gtest.h>

#include <QGuiApplication>

#if defined(__SANITIZE_ADDRESS__)
/// The encoder with which the tests make HEIC files keeps something of its own until the end.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
extern "C" const char* __lsan_default_suppressions() { return "leak:libx265"; }
#endif

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
