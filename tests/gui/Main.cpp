#include "Fiscarel_SG/look/SwissGerman.h"

#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
    // No screen is needed; who wants to watch sets another platform.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    fiscarel::look::speakSwissGerman(application);
    return RUN_ALL_TESTS();
}
