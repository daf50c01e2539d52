#include "fuzz/ZoFuzz.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>
#include <random>
#include <stdexcept>

// Every input the fuzzers were seeded with or ever failed on runs again
// here, so that what was once found stays fixed.
namespace
{
struct SFuzzTarget
{
    const char* name;
    int (*run)(const std::uint8_t*, std::size_t);
};

void PrintTo(const SFuzzTarget& target, std::ostream* out)
{
    *out << target.name;
}

void ThrowOnMismatch(const std::string& what)
{
    throw std::runtime_error(what);
}

class CorpusReplay : public ::testing::TestWithParam<SFuzzTarget>
{
};

TEST_P(CorpusReplay, EveryInputRunsCleanly)
{
    const QDir corpus(QStringLiteral(ZO_FUZZ_CORPUS_DIR "/") + GetParam().name);
    const QStringList files = corpus.entryList(QDir::Files, QDir::Name);
    ASSERT_FALSE(files.isEmpty()) << "no corpus in " << corpus.path().toStdString();
    ZoFuzzSetFailureHandler(ThrowOnMismatch);
    for (const QString& name : files)
    {
        QFile file(corpus.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
        const QByteArray bytes = file.readAll();
        try
        {
            GetParam().run(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                           static_cast<std::size_t>(bytes.size()));
        }
        catch (const std::exception& mismatch)
        {
            ADD_FAILURE() << name.toStdString() << ": " << mismatch.what();
        }
    }
    ZoFuzzSetFailureHandler(nullptr);
}

// Seeded random inputs beyond the corpus: each fuzzer checks its own model
// (the point lists against a plain list of lists, the registry against a
// plain map), so new faults show here without a fuzzing run.
TEST_P(CorpusReplay, SeededRandomInputsRunCleanly)
{
    std::mt19937 random(20261125u);
    ZoFuzzSetFailureHandler(ThrowOnMismatch);
    for (int run = 0; run < 48; ++run)
    {
        std::vector<std::uint8_t> bytes(std::uniform_int_distribution<std::size_t>(1, 3000)(random));
        for (std::uint8_t& byte : bytes)
            byte = static_cast<std::uint8_t>(random());
        try
        {
            GetParam().run(bytes.data(), bytes.size());
        }
        catch (const std::exception& mismatch)
        {
            ADD_FAILURE() << "run " << run << ": " << mismatch.what();
        }
    }
    ZoFuzzSetFailureHandler(nullptr);
}

INSTANTIATE_TEST_SUITE_P(Fuzzers, CorpusReplay,
                         ::testing::Values(SFuzzTarget{"registry", ZoFuzzRegistry},
                                           SFuzzTarget{"pointlist", ZoFuzzPointList},
                                           SFuzzTarget{"setters", ZoFuzzSetters},
                                           SFuzzTarget{"files", ZoFuzzFiles}),
                         [](const ::testing::TestParamInfo<SFuzzTarget>& info) { return std::string(info.param.name); });
} // namespace
