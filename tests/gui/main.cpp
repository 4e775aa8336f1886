// GUI tests share one QApplication that lives for the whole run.
#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    // Offscreen unless a display is asked for, so the tests run (and are listed) anywhere.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
