// GoogleTest with the application's own objects, made ready as the program does it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/start.h"

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    if (!InitializeApplication()) return 1;
    return RUN_ALL_TESTS();
}
