#include "toolkit/com.h"

#include <gtest/gtest.h>

#include <functional>
#include <thread>

#include "toolkit/win32.h"

namespace {

// The kind of apartment that the calling thread has made, or -1.
int Apartment() {
    APTTYPE type{};
    APTTYPEQUALIFIER qualifier{};
    if (FAILED(CoGetApartmentType(&type, &qualifier))) return -1;
    return qualifier == APTTYPEQUALIFIER_IMPLICIT_MTA ? -1 : static_cast<int>(type);
}

// Other tests may have made COM ready in their own thread.
void InANewThread(const std::function<void()>& action) {
    std::thread(action).join();
}

TEST(Com, IsReadyInAnApartmentOfItsOwnWhileAScopeLives) {
    InANewThread([] {
        EXPECT_EQ(Apartment(), -1);
        {
            const tvcominit com;
            EXPECT_TRUE(Apartment() == APTTYPE_STA || Apartment() == APTTYPE_MAINSTA) << Apartment();
        }
        EXPECT_EQ(Apartment(), -1);
    });
}

TEST(Com, StaysReadyUntilTheLastOfSeveralScopesIsLeft) {
    InANewThread([] {
        {
            const tvcominit outer;
            { const tvcominit inner; }
            EXPECT_NE(Apartment(), -1);
        }
        EXPECT_EQ(Apartment(), -1);
        const tvcominit again;
        EXPECT_NE(Apartment(), -1);
    });
}

TEST(Com, IsCountedForEachThreadByItself) {
    InANewThread([] {
        const tvcominit com;
        InANewThread([] {
            EXPECT_EQ(Apartment(), -1);
            const tvcominit own;
            EXPECT_NE(Apartment(), -1);
        });
        EXPECT_NE(Apartment(), -1);
    });
}

}  // namespace
