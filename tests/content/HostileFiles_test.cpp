// Files a careless or hostile host hands to the readers: what is not a regular
// file, and tiny pictures that declare huge sizes.
#include "support/ModuleFixture.h"
#include "support/ScratchFiles.h"

#include <ZoGraphics/IZoMarkPointMapObject.h>
#include <ZoGraphics/IZoRectangleMapObject.h>
#include <ZoGraphics/IZoSVGMapObject.h>
#include <ZoGraphics/IZoTextMapObject.h>

#include <QBuffer>
#include <QGraphicsTextItem>
#include <QImage>
#include <QTextDocument>
#include <QUrl>
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
    explicit PipeUnblocker(const QString& path) : m_path(QFile::encodeName(path))
    {
        m_writer = std::thread([this] {
            while (!m_stop)
            {
                const int fd = ::open(m_path.constData(), O_WRONLY);
                if (fd >= 0)
                    ::close(fd);
            }
        });
    }
    ~PipeUnblocker()
    {
        m_stop = true;
        // The writer waits in open for a reader: this one lets it go.
        const int fd = ::open(m_path.constData(), O_RDONLY | O_NONBLOCK);
        m_writer.join();
        if (fd >= 0)
            ::close(fd);
    }
    PipeUnblocker(const PipeUnblocker&) = delete;
    PipeUnblocker& operator=(const PipeUnblocker&) = delete;

private:
    QByteArray m_path;
    std::atomic<bool> m_stop{false};
    std::thread m_writer;
};

QByteArray Encoded(const QImage& image, const char* format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

QImage Small()
{
    QImage image(7, 5, QImage::Format_RGB32);
    image.fill(Qt::red);
    return image;
}

// A valid small PNG or JPEG whose header claims side x side pixels: the
// PNG's image header (its checksum fixed), the JPEG's frame header.
QByteArray Claiming(const char* format, quint16 side)
{
    QByteArray bytes = Encoded(Small(), format);
    const bool png = qstrcmp(format, "PNG") == 0;
    const int header = png ? bytes.indexOf("IHDR") + 4 : bytes.indexOf("\xFF\xC0") + 5;
    const int step = png ? 4 : 2;
    for (int i = 0; i < 2; ++i)
    {
        // Big-endian, right-aligned in its field.
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

QByteArray Gzipped(const QByteArray& bytes)
{
    z_stream stream{};
    deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, 16 + MAX_WBITS, 8, Z_DEFAULT_STRATEGY);
    QByteArray out(static_cast<int>(deflateBound(&stream, static_cast<uLong>(bytes.size()))), '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.constData()));
    stream.avail_in = static_cast<uInt>(bytes.size());
    stream.next_out = reinterpret_cast<Bytef*>(out.data());
    stream.avail_out = static_cast<uInt>(out.size());
    deflate(&stream, Z_FINISH);
    out.resize(static_cast<int>(stream.total_out));
    deflateEnd(&stream);
    return out;
}

class HostileFilesTest : public ModuleFixture
{
protected:
    // Every reader, each handed the one path it reads.
    using Reader = std::function<void(const std::string& path)>;
    struct Case
    {
        const char* name;
        Reader read;
        std::string prefix;                // the log text before the path
        std::vector<std::string> followUp; // logged after the refusal
    };

    std::vector<Case> Readers()
    {
        return {
            {"icon", [this](const std::string& p) { MarkPoint()->SetIconFile(p); },
             "[CZoMarkPointMapObject::SetIconFile] "},
            {"texture", [this](const std::string& p) { Rectangle()->SetBrushTextureFile(Qt::TexturePattern, p); },
             "[CZoRectangleMapObject::SetBrushTextureFile] "},
            {"svg", [this](const std::string& p) { EXPECT_FALSE(Svg()->LoadSVGFile(p, CVector3D(0, 0, 0))); },
             "[CZoSVGMapObject::LoadSVGFile] ",
             {"[CZoSVGMapObject::LoadSVGFile] Qt-Item加载SVG失败"}},
            {"svg image", [this](const std::string& p) { ConvertSVGToImage(InSvg(p)); }, "[ConvertSVGToImage] "},
            {"html", [this](const std::string& p) { Html("<p>x<img src=\"" + p + "\"></p>"); },
             "[CZoTextMapObject::SetHtml] "},
        };
    }

    IZoMarkPointMapObject* MarkPoint() { return module.CreateMarkPointMapObject("m", nullptr); }
    IZoRectangleMapObject* Rectangle() { return module.CreateRectangleMapObject("r", nullptr); }
    IZoSVGMapObject* Svg() { return module.CreateSVGMapObject("s", nullptr); }
    // Lays the text out, which is when Qt asks for its images.
    QGraphicsItem* Html(const std::string& html)
    {
        IZoTextMapObject* text = module.CreateTextMapObject("t", nullptr);
        text->SetHtml(html);
        text->GetQtItem()->boundingRect();
        return text->GetQtItem();
    }
    // An SVG of the scratch folder whose one image is the path.
    std::string InSvg(const std::string& path)
    {
        return files.Write(QStringLiteral("holder.svg"), SvgWithImage(QString::fromStdString(path)));
    }

    ScratchFiles files;
};
} // namespace

TEST_F(HostileFilesTest, ReadersRefuseWhatIsNotARegularFileWithoutOpeningIt)
{
    const QString fifo = files.FilePath(QStringLiteral("pipe"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    for (const std::string path : {fifo.toStdString(), std::string("/dev/zero")})
    {
        for (const Case& c : Readers())
        {
            SCOPED_TRACE(std::string(c.name) + " " + path);
            log.Clear();
            {
                PipeUnblocker unblocker(fifo);
                c.read(path);
            }
            const std::string refused = c.name == std::string("svg image")
                                            ? "SVG引用的图片不可读取或过大, 拒绝加载: "
                                            : "不是普通文件, 拒绝读取: ";
            std::vector<std::string> expected{c.prefix + refused + path};
            expected.insert(expected.end(), c.followUp.begin(), c.followUp.end());
            EXPECT_EQ(log.Messages(), expected);
        }
    }
}

TEST_F(HostileFilesTest, PicturesDeclaringHugeSizesAreRefusedAfterReadingTheirHeader)
{
    const std::string png = files.Write(QStringLiteral("huge.png"), Claiming("PNG", 30000));
    const std::string jpeg = files.Write(QStringLiteral("huge.jpg"), Claiming("JPEG", 60000));
    for (const auto& [path, declared] :
         std::vector<std::pair<std::string, std::string>>{{png, "30000x30000"}, {jpeg, "60000x60000"}})
    {
        for (const Case& c : Readers())
        {
            if (c.name == std::string("svg"))
                continue;
            SCOPED_TRACE(std::string(c.name) + " " + path);
            log.Clear();
            c.read(path);
            const std::string refused = c.name == std::string("svg image")
                                            ? "SVG引用的图片不可读取或过大, 拒绝加载: " + path
                                            : "图片尺寸过大或未知, 拒绝解码: " + declared;
            EXPECT_EQ(log.Messages(), std::vector<std::string>{c.prefix + refused});
        }
    }
    // Inline in an SVG, the same picture is refused before Qt decodes it.
    log.Clear();
    const QString inlined = QStringLiteral("data:image/png;base64,") + QString::fromLatin1(Claiming("PNG", 30000).toBase64());
    EXPECT_TRUE(ConvertSVGToImage(files.Write(QStringLiteral("inline.svg"), SvgWithImage(inlined))).isNull());
    ASSERT_EQ(log.Messages().size(), 1u);
    EXPECT_EQ(log.Messages()[0].rfind("[ConvertSVGToImage] SVG引用的图片不可读取或过大, 拒绝加载: data:image/png", 0), 0u);
}

TEST_F(HostileFilesTest, AnSvgDeclaringAHugeSizeIsRenderedAtTheCap)
{
    const std::string svg = files.Write(
        QStringLiteral("wide.svg"), "<svg xmlns='http://www.w3.org/2000/svg' width='32768' height='16'/>");
    IZoMarkPointMapObject* mark = MarkPoint();
    mark->SetIconFile(svg);
    EXPECT_EQ(mark->GetIcon().size(), QSize(8192, 4));
    EXPECT_EQ(log.Messages(),
              std::vector<std::string>{"[CZoMarkPointMapObject::SetIconFile] SVG尺寸过大, 图像已缩小到: 8192x4"});
}

TEST_F(HostileFilesTest, OrdinaryPicturesStillLoadEverywhere)
{
    const std::string png = files.Write(QStringLiteral("small.png"), Encoded(Small(), "PNG"));
    QGraphicsItem* text = Html("<img src=\"" + png + "\">");
    const QVariant image = dynamic_cast<QGraphicsTextItem*>(text)->document()->resource(
        QTextDocument::ImageResource, QUrl(QString::fromStdString(png)));
    EXPECT_EQ(image.value<QImage>().size(), QSize(7, 5));
    // An SVG with an image of its own, plain and compressed.
    const QByteArray holder = SvgWithImage(QString::fromStdString(png));
    EXPECT_TRUE(Svg()->LoadSVGFile(files.Write(QStringLiteral("plain.svg"), holder), CVector3D(0, 0, 0)));
    EXPECT_TRUE(
        module.CreateSVGMapObject("z", nullptr)
            ->LoadSVGFile(files.Write(QStringLiteral("packed.svgz"), Gzipped(holder)), CVector3D(0, 0, 0)));
    EXPECT_EQ(log.Messages(), std::vector<std::string>{});
}
