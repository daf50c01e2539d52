#include <ZoGraphics/ZoCoreUtility.h>
#include <gtest/gtest.h>
#include <string>

TEST(CoreText, Gb18030BytesAndRoundTrips)
{
    EXPECT_EQ(ConvertQStringToStdString(QStringLiteral("北京")), "\xB1\xB1\xBE\xA9");
    // U+1F600 lies outside the BMP: GB18030's four-byte form.
    EXPECT_EQ(ConvertQStringToStdString(QString::fromUtf8("\xF0\x9F\x98\x80")), "\x94\x39\xFC\x36");
    EXPECT_EQ(ConvertStdStringToQString("\xD6\xD0\xB9\xFA"), QStringLiteral("中国"));
    EXPECT_EQ(ConvertCharArrayToQString("\xD6\xD0\xB9\xFA"), QStringLiteral("中国"));
    for (const char* utf8 : {"Road 5 / 朝阳路 (east)", "\xF0\x9F\x98\x80 smile 笑", ""})
    {
        const QString text = QString::fromUtf8(utf8);
        const std::string gb = ConvertQStringToStdString(text, "GB18030");
        EXPECT_EQ(ConvertStdStringToQString(gb, "GB18030"), text) << utf8;
        EXPECT_EQ(ConvertCharArrayToQString(gb.c_str(), "GB18030"), text) << utf8;
    }
}
