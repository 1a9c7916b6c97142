#include <gtest/gtest.h>

#include <QApplication>

#include "host/window/accessibility.h"
#include "host/window/appearance.h"

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    NolSchedCtls::SetAppearance(false);
    NolSchedCtls::InstallAccessibility();
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
