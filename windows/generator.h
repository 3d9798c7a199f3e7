// The password generator: a random password from up to four classes of characters and a range of lengths.
#pragma once

#include <array>
#include <functional>

#include "foundation/tvstring.h"
#include "platform/types.h"

// The classes, as indexes into everything that has four entries here.
enum PassGenClass : u8 { PASSGEN_DIGITS, PASSGEN_UPPER, PASSGEN_LOWER, PASSGEN_OTHER };
inline constexpr std::size_t kPassGenClasses = 4;

// The characters of each class. Letters that are easily taken for others (I, O, l) are left out.
inline constexpr std::array<std::u16string_view, kPassGenClasses> kPassGenTables = {
    u"0123456789",
    u"ABCDEFGHJKLMNPQRSTUVWXYZ",
    u"abcdefghijkmnopqrstuvwxyz",
    u"~!@#$%^&*()_+|{}:\"<>,.?/\\;'",
};

inline constexpr i32 kPassGenShortest = 4;
inline constexpr i32 kPassGenLongest = 128;

struct PassGenRequest {
    std::array<u8, kPassGenClasses> use = {1, 1, 1, 0};  // 1 for a class that is asked for, else 0
    i32 minLength = 12;
    i32 maxLength = 20;
};

// The classes as the bits of the stored value, whose order is not that of the classes: 1 upper case, 2 lower
// case, 4 digits, 8 other. Further bits are passed over.
u32 OptionBits(const PassGenRequest& request);
void TakeOptionBits(PassGenRequest& request, u32 bits);

// Which of the two lengths NormaliseLengths changed.
struct ChangedLengths {
    bool min = false;
    bool max = false;
};

// Puts both lengths into the range of kPassGenShortest to kPassGenLongest, and the longest not below the
// shortest.
ChangedLengths NormaliseLengths(i32& minLength, i32& maxLength);

// Where random bytes come from.
class PassGenRandom {
public:
    static constexpr std::size_t kBlockSize = 32;

    virtual ~PassGenRandom() = default;

    // Fills a block.
    virtual void FetchBlock(u8* out32) = 0;

    // The byte that stands behind the block through one password: from no block that FetchBlock gave.
    virtual u8 Neighbour() = 0;
};

// A password. `read` is asked for the request anew at each try, of which there may be many: one that lacks a
// class is thrown away whole. A request without any class never returns.
tvstring GeneratePassword(const std::function<PassGenRequest()>& read, PassGenRandom& random);

// The same from random bytes that are fit for keys.
tvstring GeneratePassword(const std::function<PassGenRequest()>& read);
tvstring GeneratePassword(const PassGenRequest& request);

// The request as it is kept in the settings store. A value that is absent or of another size has its default;
// the lengths are normalised.
PassGenRequest LoadPassGenOptions();
// Nothing is written if the store cannot be opened.
void StorePassGenOptions(PassGenRequest request);
