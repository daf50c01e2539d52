// Files a careless or hostile host hands to the readers: what is not a regular
// file, pictures that declare huge sizes. Each reader refuses them with its
// own text and keeps working.
#include "support/ModuleFixture.h"
#include "support/ScratchFiles.h"
#include <ZoGraphics/ZoGeoJson.h>
#include <QBuffer>
#include <QGraphicsItem>
#include <QtEndian>
#include <atomic>
#include <fcntl.h>
#include <functional>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <zlib.h>

namespace
{
// Should a reader open the pipe after all, a writer comes and goes at once,
// so that the reader sees the end of the file and the test fails instead of
// hanging.
class PipeUnblocker
{
public:
    explicit PipeUnblocker(const std::string& path) : m_path(path)
    {
        m_writer = std::thread([this] {
            while (!m_stop)
                if (const int fd = ::open(m_path.c_str(), O_WRONLY); fd >= 0)
                    ::close(fd);
        });
    }
    ~PipeUnblocker()
    {
        m_stop = true;
        // The writer waits in open for a reader: this one lets it go.
        const int fd = ::open(m_path.c_str(), O_RDONLY | O_NONBLOCK);
        m_writer.join();
        if (fd >= 0)
            ::close(fd);
    }
    Q_DISABLE_COPY(PipeUnblocker)

private:
    std::string m_path;
    std::atomic<bool> m_stop{false};
    std::thread m_writer;
};

// A valid small PNG or JPEG whose header claims side x side pixels: the
// PNG's image header (its checksum fixed), the JPEG's frame header.
QByteArray Claiming(const char* format, quint16 side)
{
    QImage image(7, 5, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, format);
    const bool png = qstrcmp(format, "PNG") == 0;
    const int header = png ? bytes.indexOf("IHDR") + 4 : bytes.indexOf("\xFF\xC0") + 5, step = png ? 4 : 2;
    for (int i = 0; i < 2; ++i)
    {
        bytes[header + step * (i + 1) - 2] = static_cast<char>(side >> 8);
        bytes[header + step * (i + 1) - 1] = static_cast<char>(side & 0xFF);
    }
    if (png)
        qToBigEndian(static_cast<quint32>(crc32(0, reinterpret_cast<const Bytef*>(bytes.constData() + header - 4), 17)),
                     bytes.data() + header + 13);
    return bytes;
}

QByteArray SvgWithImage(const QString& href)
{
    return "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' width='20' "
           "height='20'><image x='0' y='0' width='10' height='10' xlink:href='" +
           href.toUtf8() + "'/></svg>";
}

class HostileFilesTest : public ModuleFixture
{
protected:
    // Every reader with the texts it logs: for what is not a regular file
    // and for a picture declaring a huge size (empty: the reader takes no
    // pictures), each followed by the path, or the declared size.
    struct Reader
    {
        const char* name;
        std::function<void(const std::string& path)> read;
        std::string notRegular, hugePicture;
        std::vector<std::string> followUp; // logged after the refusal of what is not a file
    };
    std::vector<Reader> Readers()
    {
        const std::string svgImage = "[ConvertSVGToImage] SVG引用的图片不可读取或过大, 拒绝加载: ";
        return {
            {"icon", [this](const std::string& p) { module.CreateMarkPointMapObject("m", nullptr)->SetIconFile(p); },
             "[CZoMarkPointMapObject::SetIconFile] 不是普通文件, 拒绝读取: ",
             "[CZoMarkPointMapObject::SetIconFile] 图片尺寸过大或未知, 拒绝解码: "},
            {"texture",
             [this](const std::string& p) { module.CreateRectangleMapObject("r", nullptr)->SetBrushTextureFile(Qt::TexturePattern, p); },
             "[CZoRectangleMapObject::SetBrushTextureFile] 不是普通文件, 拒绝读取: ",
             "[CZoRectangleMapObject::SetBrushTextureFile] 图片尺寸过大或未知, 拒绝解码: "},
            {"svg", [this](const std::string& p) { EXPECT_FALSE(module.CreateSVGMapObject("s", nullptr)->LoadSVGFile(p, {})); },
             "[CZoSVGMapObject::LoadSVGFile] 不是普通文件, 拒绝读取: ", "",
             {"[CZoSVGMapObject::LoadSVGFile] Qt-Item加载SVG失败"}},
            {"svg image",
             [this](const std::string& p) {
                 EXPECT_TRUE(ConvertSVGToImage(files.Write(QStringLiteral("holder.svg"),
                                                           SvgWithImage(QString::fromStdString(p))))
                                 .isNull());
             },
             svgImage, svgImage},
            {"html", [this](const std::string& p) { Html("<p>x<img src=\"" + p + "\"></p>"); },
             "[CZoTextMapObject::SetHtml] 不是普通文件, 拒绝读取: ",
             "[CZoTextMapObject::SetHtml] 图片尺寸过大或未知, 拒绝解码: "},
            {"geojson",
             [this](const std::string& p) { EXPECT_FALSE(ZoGeoJsonNS::LoadGeoJsonFile(&module, nullptr, p).parsed); },
             "[CZoGeoJsonReader::LoadFile] 不是普通文件: ", ""},
        };
    }
    // Lays the text out, which is when Qt asks for its images.
    void Html(const std::string& html)
    {
        IZoTextMapObject* text = module.CreateTextMapObject("t", nullptr);
        text->SetHtml(html);
        text->GetQtItem()->boundingRect();
    }
    ScratchFiles files;
};
} // namespace

TEST_F(HostileFilesTest, ReadersRefuseWhatIsNotARegularFileWithoutOpeningIt)
{
    const std::string fifo = files.Path(QStringLiteral("pipe"));
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    for (const std::string& path : {fifo, std::string("/dev/zero")})
        for (const Reader& r : Readers())
        {
            SCOPED_TRACE(std::string(r.name) + " " + path);
            log.Clear();
            {
                PipeUnblocker unblocker(fifo);
                r.read(path);
            }
            std::vector<std::string> expected{r.notRegular + path};
            expected.insert(expected.end(), r.followUp.begin(), r.followUp.end());
            EXPECT_EQ(log.Messages(), expected);
        }
}

TEST_F(HostileFilesTest, PicturesDeclaringHugeSizesAreRefusedAfterReadingTheirHeader)
{
    const std::string png = files.Write(QStringLiteral("huge.png"), Claiming("PNG", 30000));
    const std::string jpeg = files.Write(QStringLiteral("huge.jpg"), Claiming("JPEG", 60000));
    for (const auto& [path, declared] :
         std::vector<std::pair<std::string, std::string>>{{png, "30000x30000"}, {jpeg, "60000x60000"}})
        for (const Reader& r : Readers())
            if (!r.hugePicture.empty())
            {
                log.Clear();
                r.read(path);
                const bool namesThePath = r.name == std::string("svg image");
                EXPECT_EQ(log.Messages(), std::vector<std::string>{r.hugePicture + (namesThePath ? path : declared)}) << r.name;
            }
    // Inline in an SVG, the same picture is refused before Qt decodes it.
    log.Clear();
    const QString inlined = QStringLiteral("data:image/png;base64,") + QString::fromLatin1(Claiming("PNG", 30000).toBase64());
    EXPECT_TRUE(ConvertSVGToImage(files.Write(QStringLiteral("inline.svg"), SvgWithImage(inlined))).isNull());
    EXPECT_EQ(log.Messages(), std::vector<std::string>{"[ConvertSVGToImage] SVG引用的图片不可读取或过大, 拒绝加载: " +
                                                        inlined.left(256).toStdString()});
}

// A 136-byte icon declaring 30000 pixels took gigabytes; a GeoJSON file past
// the cap would be read whole before parsing.
TEST_F(HostileFilesTest, LargeDeclaredSizesAreCappedBeforeAnythingIsDecoded)
{
    const std::string svg = files.Write(QStringLiteral("wide.svg"),
        "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"30000\" height=\"15000\"><rect width=\"9\" height=\"9\"/></svg>");
    module.CreateMarkPointMapObject("m", nullptr)->SetIconFile(svg);
    EXPECT_EQ(log.Messages(), std::vector<std::string>{"[CZoMarkPointMapObject::SetIconFile] SVG尺寸过大, 图像已缩小到: 8192x4096"});
    log.Clear();
    const QString big = files.FilePath(QStringLiteral("big.geojson"));
    QFile file(big);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(256LL * 1024 * 1024 + 1));
    file.close();
    EXPECT_FALSE(ZoGeoJsonNS::LoadGeoJsonFile(&module, nullptr, files.Path(QStringLiteral("big.geojson"))).parsed);
    EXPECT_EQ(log.Messages(), std::vector<std::string>{"[CZoGeoJsonReader::LoadFile] 文件超过大小上限: " +
                                                        files.Path(QStringLiteral("big.geojson"))});
}
