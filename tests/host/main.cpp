#include <gtest/gtest.h>

#include <QCoreApplication>

#include "tests/host/saver.h"

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (NolSchedCtls::Testing::IsSaver(argc, argv)) return NolSchedCtls::Testing::RunSaver(argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
