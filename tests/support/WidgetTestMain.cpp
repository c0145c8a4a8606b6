#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    // The scale is fixed so that pixel positions mean the same on every machine.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    QApplication app(argc, argv);
    return RUN_ALL_TESTS();
}
