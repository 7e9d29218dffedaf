// SPDX-License-Identifier: MIT
// Runs a fuzz target without a fuzzing engine: on the given files or, without any, on its seeds and twenty
// thousand changes of them, the same in every run. An input that fails is kept in the working directory.
#include "tests/fuzz/Seeds.h"
#include "tests/fuzz/Target.h"

#include <QFile>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>

#include <fcntl.h>
#include <unistd.h>

// Both are null if undefined: not every target has a mutator, and not every build a sanitizer.
#pragma weak LLVMFuzzerCustomMutator
extern "C" __attribute__((weak)) void __sanitizer_set_death_callback(void (*callback)());

namespace {

constexpr int changedInputs = 20'000;
constexpr int mostChanges = 6;             // of one input
constexpr std::size_t longestInput = 8192; // bytes
constexpr char failedInputName[] = "failed-input-" FUZZ_TARGET;

using Bytes = std::vector<std::uint8_t>;

const Bytes *running = nullptr;

//! Called when the process crashes, so it does little.
void keepInput()
{
    const int file = ::open(failedInputName, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (running && file >= 0 && ::write(file, running->data(), running->size()) >= 0)
        std::fprintf(stderr, "the input is kept as %s\n", failedInputName);
}

void keepInputAndDie(int signal)
{
    keepInput();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void run(const Bytes &input)
{
    running = &input;
    LLVMFuzzerTestOneInput(input.data(), input.size());
    running = nullptr;
}

//! The random numbers of all changes.
std::mt19937 randomness;

std::size_t below(std::size_t limit)
{
    return limit == 0 ? 0 : randomness() % limit; // a distribution would differ from library to library
}

std::uint8_t anyByte()
{
    return static_cast<std::uint8_t>(below(256));
}

void changeOnce(Bytes &bytes)
{
    const auto at = static_cast<std::ptrdiff_t>(below(bytes.size()));
    const auto length = static_cast<std::ptrdiff_t>(
        std::min(1 + below(below(4) == 0 ? bytes.size() : 8), bytes.size() - static_cast<std::size_t>(at)));
    const auto place = bytes.begin() + at;
    // Sizes and counts often fail at these.
    static constexpr std::uint32_t edges[] = {0,      1,      0x7F,       0x80,       0xFF,      0x7FFF,
                                              0x8000, 0xFFFF, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};
    switch (below(6)) {
    case 0:
        *place = static_cast<std::uint8_t>(*place ^ 1U << below(8));
        break;
    case 1:
        *place = anyByte();
        break;
    case 2: {
        const std::uint32_t edge = edges[below(std::size(edges))] + static_cast<std::uint32_t>(below(3)) - 1;
        for (std::ptrdiff_t i = 0; i < std::min<std::ptrdiff_t>(4, bytes.end() - place); ++i)
            place[i] = static_cast<std::uint8_t>(edge >> 8 * i);
        break;
    }
    case 3:
        bytes.erase(place, place + length);
        break;
    case 4: {
        const Bytes again(place, place + length);
        bytes.insert(place, again.begin(), again.end());
        break;
    }
    default:
        bytes.insert(place, anyByte());
    }
}

Bytes changed(const Bytes &seed)
{
    Bytes bytes = seed;
    const std::size_t size = bytes.size();
    bytes.resize(std::max(longestInput, size));
    bytes.resize(LLVMFuzzerCustomMutator ? LLVMFuzzerCustomMutator(bytes.data(), size, bytes.size(),
                                                                   static_cast<unsigned int>(randomness()))
                                         : LLVMFuzzerMutate(bytes.data(), size, bytes.size()));
    bytes.shrink_to_fit(); // so that a sanitizer sees where the input ends
    return bytes;
}

Bytes bytesOf(const QByteArray &bytes)
{
    return {bytes.begin(), bytes.end()};
}

int runFiles(int count, char **paths)
{
    for (int i = 0; i < count; ++i) {
        QFile file(QString::fromLocal8Bit(paths[i]));
        if (!file.open(QIODevice::ReadOnly)) {
            std::fprintf(stderr, "cannot read %s\n", paths[i]);
            return EXIT_FAILURE;
        }
        run(bytesOf(file.readAll()));
    }
    return EXIT_SUCCESS;
}

int runSeeds()
{
    std::vector<Bytes> cheap;
    for (const fuzz::Seed &seed : fuzz::seedsOf(QStringLiteral(FUZZ_TARGET))) {
        const Bytes bytes = bytesOf(seed.bytes);
        run(bytes);
        if (!seed.isCostly)
            cheap.push_back(bytes);
    }
    fuzz::require(!cheap.empty(), "a target has seeds");
    run({});
    for (int i = 0; i < changedInputs; ++i)
        run(changed(cheap[below(cheap.size())]));
    return EXIT_SUCCESS;
}

} // namespace

std::size_t LLVMFuzzerMutate(std::uint8_t *data, std::size_t size, std::size_t maxSize)
{
    Bytes bytes(data, data + size);
    for (std::size_t changes = 1 + below(mostChanges); changes > 0; --changes) {
        if (bytes.empty())
            bytes.push_back(anyByte());
        changeOnce(bytes);
    }
    bytes.resize(std::min(bytes.size(), maxSize));
    std::copy(bytes.begin(), bytes.end(), data);
    return bytes.size();
}

int main(int argc, char **argv)
{
    std::signal(SIGABRT, keepInputAndDie);
    std::signal(SIGSEGV, keepInputAndDie);
    if (__sanitizer_set_death_callback)
        __sanitizer_set_death_callback(keepInput);

    const int status = argc > 1 ? runFiles(argc - 1, argv + 1) : runSeeds();
    const fuzz::Costs costs = fuzz::costs();
    std::printf("%s: %llu inputs, slowest %.1f ms, largest %.1f MiB\n", FUZZ_TARGET,
                static_cast<unsigned long long>(costs.executions), static_cast<double>(costs.slowest) / 1000,
                static_cast<double>(costs.largest) / (1024 * 1024));
    return status;
}
