#include "fuzz/ZoFuzz.h"
#include <QDir>
#include <QFile>
#include <gtest/gtest.h>
#include <random>
#include <stdexcept>

// Every input the fuzzers were seeded with or ever failed on runs again, so
// that what was once found stays fixed; then seeded random inputs, so that a
// change that breaks a fuzzer's model shows without a fuzzing run.
namespace
{
struct SFuzzTarget
{
    const char* name;
    int (*run)(const std::uint8_t*, std::size_t);
    int randomRuns;
    int longest; // bytes of a random input
};

class CorpusReplay : public ::testing::TestWithParam<SFuzzTarget>
{
protected:
    void SetUp() override { ZoFuzzSetFailureHandler([](const std::string& what) { throw std::runtime_error(what); }); }
    void TearDown() override { ZoFuzzSetFailureHandler(nullptr); }
    void Run(const QByteArray& bytes, const std::string& input)
    {
        try
        {
            GetParam().run(reinterpret_cast<const std::uint8_t*>(bytes.constData()), static_cast<std::size_t>(bytes.size()));
        }
        catch (const std::exception& mismatch)
        {
            ADD_FAILURE() << input << ": " << mismatch.what();
        }
    }
};

TEST_P(CorpusReplay, EveryInputAndSeededRandomOnesRunCleanly)
{
    const QDir corpus(QStringLiteral(ZO_FUZZ_CORPUS_DIR "/") + GetParam().name);
    const QStringList files = corpus.entryList(QDir::Files, QDir::Name);
    ASSERT_FALSE(files.isEmpty()) << "no corpus in " << corpus.path().toStdString();
    for (const QString& name : files)
    {
        QFile file(corpus.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
        Run(file.readAll(), name.toStdString());
    }
    std::mt19937 random(20261125u);
    std::uniform_int_distribution<int> length(1, GetParam().longest);
    for (int run = 0; run < GetParam().randomRuns; ++run)
    {
        QByteArray bytes(length(random), '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random());
        Run(bytes, "random input " + std::to_string(run));
    }
}

INSTANTIATE_TEST_SUITE_P(Fuzzers, CorpusReplay,
                         ::testing::Values(SFuzzTarget{"registry", ZoFuzzRegistry, 48, 3000},
                                           SFuzzTarget{"pointlist", ZoFuzzPointList, 300, 2000},
                                           SFuzzTarget{"setters", ZoFuzzSetters, 48, 3000},
                                           SFuzzTarget{"files", ZoFuzzFiles, 48, 3000}),
                         [](const ::testing::TestParamInfo<SFuzzTarget>& info) { return std::string(info.param.name); });
} // namespace
