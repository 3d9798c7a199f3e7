// The program's windows, one after another and under each theme, as pictures in a folder.
//
//   window_pictures FOLDER [options of GoogleTest]
#include <gtest/gtest.h>

#include "shell/start.h"
#include "tests/golden/picture_stage.h"

int main(int argc, char** argv) {
    constexpr int kBadArguments = 2;
    testing::InitGoogleTest(&argc, argv);
    if (argc != 2) {
        std::puts("usage: window_pictures FOLDER");
        return kBadArguments;
    }
    PictureFolder() = argv[1];
    if (!InitializeApplication()) return 1;
    return RUN_ALL_TESTS();
}
