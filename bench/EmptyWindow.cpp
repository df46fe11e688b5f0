// The least a program of the window library can be: what the start of ours is measured against.
// Ends with its first picture.

#include "bench/FirstPicture.h"

#include <QApplication>
#include <QMainWindow>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QMainWindow window;
    window.resize(1280, 820);
    fiscarel::bench::leaveWithFirstPicture(window);
    window.show();
    return QApplication::exec();
}
