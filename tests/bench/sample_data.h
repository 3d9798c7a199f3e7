// The database that all measurements work on: made from a fixed seed, so that every run sees the same.
#pragma once

#include "database/database.h"

// A tenth of the names has non-ASCII letters; names are about 20 units long, programs 40, user names 15,
// passwords 16, and three items of ten have an additional text of 120.
void FillSample(VMRD_DB& database, int items);

// The master password of sample files.
inline constexpr const char16_t* kSamplePassword = u"sample master password";
