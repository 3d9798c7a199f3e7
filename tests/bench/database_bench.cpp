// Opening and saving, each beside the least that any program would have to do for the same data.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "database/container.h"
#include "database/database.h"
#include "database/record.h"
#include "foundation/path.h"
#include "platform/crypto.h"
#include "tests/bench/sample_data.h"

namespace {

constexpr u8 kKey[kKeySize] = {1, 2, 3};

// A file that is there as long as the benchmark runs.
class SampleFile {
public:
    explicit SampleFile(int items) : m_Path(u"build/bench-sample.vmr") {
        VMRD_DB database;
        database.MakeCurrent();
        FillSample(database, items);
        database.m_Path = m_Path;
        if (!database.Save()) std::abort();
    }
    ~SampleFile() { std::remove("build/bench-sample.vmr"); }
    SampleFile(const SampleFile&) = delete;
    SampleFile& operator=(const SampleFile&) = delete;
    [[nodiscard]] const tvstring& Path() const { return m_Path; }

private:
    tvstring m_Path;
};

// The record stream of the sample, in clear.
std::vector<u8> PlainStream(int items) {
    VMRD_DB database;
    database.MakeCurrent();
    FillSample(database, items);
    const tvdata container = database.Serialize();
    u8 key[kKeySize];
    DeriveKey(database.m_PwdHash, container.Data() + 8, key);
    const tvdata plain = Decrypt(container.Data() + kHeaderSize, container.Size() - kHeaderSize, key);
    return {plain.Data(), plain.Data() + plain.Size()};
}

void Open(benchmark::State& state) {
    const SampleFile file(static_cast<int>(state.range(0)));
    VMRD_DB database;
    database.MakeCurrent();
    for (auto _ : state) {
        if (!database.Open(file.Path(), kSamplePassword)) state.SkipWithError("cannot open");
        state.PauseTiming();
        database.Close();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// Decrypts the same bytes and allocates and copies one block for each text.
void OpenBare(benchmark::State& state) {
    const std::vector<u8> stream = PlainStream(static_cast<int>(state.range(0)));
    const tvdata cipher = Encrypt(stream.data(), stream.size(), kKey);
    std::vector<std::unique_ptr<u8[]>> blocks;
    for (auto _ : state) {
        const auto plain = std::make_unique<u8[]>(cipher.Size());
        std::size_t size = 0;
        platform::AesKey key = platform::MakeAesKey(kKey);
        platform::AesDecrypt(key, cipher.Data(), cipher.Size(), plain.get(), cipher.Size(), size);
        platform::DestroyAesKey(key);
        blocks.clear();
        for (std::size_t place = 0; place < size;) {
            u16 length = 0;
            std::memcpy(&length, plain.get() + place + 2, sizeof length);
            const std::size_t bytes = std::size_t{length} * 2;
            blocks.emplace_back(new u8[bytes]);
            std::memcpy(blocks.back().get(), plain.get() + place + kRecordHeadSize, bytes);
            place += kRecordHeadSize + bytes;
        }
        state.PauseTiming();
        blocks.clear();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void Save(benchmark::State& state) {
    const SampleFile file(1);
    VMRD_DB database;
    database.MakeCurrent();
    FillSample(database, static_cast<int>(state.range(0)));
    database.m_Path = file.Path();
    for (auto _ : state) {
        if (!database.Save()) state.SkipWithError("cannot save");
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// Encrypts the same bytes and copies the stream once.
void SaveBare(benchmark::State& state) {
    const std::vector<u8> stream = PlainStream(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        const auto copy = std::make_unique_for_overwrite<u8[]>(stream.size());
        std::memcpy(copy.get(), stream.data(), stream.size());
        const std::size_t room = stream.size() + 16;
        const auto out = std::make_unique_for_overwrite<u8[]>(room);
        std::size_t size = 0;
        platform::AesKey key = platform::MakeAesKey(kKey);
        platform::AesEncrypt(key, copy.get(), stream.size(), out.get(), room, size);
        platform::DestroyAesKey(key);
        benchmark::DoNotOptimize(out.get());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(OpenBare)->Arg(1000)->Arg(10'000)->Arg(60'000)->Unit(benchmark::kMillisecond);
BENCHMARK(Open)->Arg(1000)->Arg(10'000)->Arg(60'000)->Unit(benchmark::kMillisecond);
BENCHMARK(SaveBare)->Arg(1000)->Arg(10'000)->Arg(60'000)->Unit(benchmark::kMillisecond);
BENCHMARK(Save)->Arg(1000)->Arg(10'000)->Arg(60'000)->Unit(benchmark::kMillisecond);

}  // namespace
