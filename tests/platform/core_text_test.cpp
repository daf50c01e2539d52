#include <ZoGraphics/ZoCoreUtility.h>

#include <gtest/gtest.h>

#include <string>

namespace
{
std::string Bytes(std::initializer_list<unsigned char> bytes)
{
    return std::string(bytes.begin(), bytes.end());
}
}

TEST(CoreText, KnownGb18030Bytes)
{
    EXPECT_EQ(ConvertQStringToStdString(QStringLiteral("中")), Bytes({0xD6, 0xD0}));
    EXPECT_EQ(ConvertQStringToStdString(QStringLiteral("北京")), Bytes({0xB1, 0xB1, 0xBE, 0xA9}));
    // U+1F600 lies outside the BMP: GB18030's four-byte form.
    EXPECT_EQ(ConvertQStringToStdString(QString::fromUtf8("\xF0\x9F\x98\x80")), Bytes({0x94, 0x39, 0xFC, 0x36}));
    EXPECT_EQ(ConvertStdStringToQString(Bytes({0xD6, 0xD0, 0xB9, 0xFA})), QStringLiteral("中国"));
    EXPECT_EQ(ConvertCharArrayToQString("\xD6\xD0\xB9\xFA"), QStringLiteral("中国"));
}

TEST(CoreText, RoundTripsThroughGb18030)
{
    const char* samples[] = {"北京市朝阳区", "微软雅黑", "Road 5 / 朝阳路 (east)", "\xF0\x9F\x98\x80 smile 笑", "plain ascii",
                             ""};
    for (const char* utf8 : samples)
    {
        const QString text = QString::fromUtf8(utf8);
        const std::string gb = ConvertQStringToStdString(text, "GB18030");
        EXPECT_EQ(ConvertStdStringToQString(gb, "GB18030"), text) << utf8;
        EXPECT_EQ(ConvertCharArrayToQString(gb.c_str(), "GB18030"), text) << utf8;
    }
}

TEST(CoreText, UnknownCodePageFallsBackToUtf8)
{
    const QString text = QStringLiteral("北京 abc");
    EXPECT_EQ(ConvertQStringToStdString(text, "NO-SUCH-CODEPAGE"), text.toUtf8().toStdString());
    EXPECT_EQ(ConvertStdStringToQString(text.toUtf8().toStdString(), "NO-SUCH-CODEPAGE"), text);
    EXPECT_EQ(ConvertCharArrayToQString(text.toUtf8().constData(), nullptr), text);
}
