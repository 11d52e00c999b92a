// High-DPI: every drawn bitmap has a sharp "@2x" sibling, picked on a 200% screen (QT_SCALE_FACTOR=2).
#include "uxbaseshadowwidget.h"
#include "uxmessagebox.h"
#include "uxscaledpixmap.h"
#include "uxtestenv.h"

#include <QtWidgets>

namespace {

const char* const kPieces[] = {"top_left", "left", "bottom_left", "top", "bottom", "right", "top_right", "bottom_right"};

// The stand-ins' colours (tst_hidpi.qrc): plain at 100%, inverted in "@2x".
QColor pieceColour(int piece, bool sharp)
{
    static const QRgb colours[] = {0xff0000, 0x00ff00, 0x0000ff, 0xffff00, 0x00ffff, 0xff00ff, 0x800000, 0x008000};
    return QColor(sharp ? colours[piece] ^ 0xffffff : colours[piece]);
}

QByteArray solidPng(const QSize& size, const QColor& colour)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(colour);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return buffer.data();
}

// The first piece of a frame with border B whose inside point does not show its colour, or -1.
int wrongPiece(const QImage& image, qreal ratio, int b, bool sharp)
{
    const int w = qRound(image.width() / ratio), h = qRound(image.height() / ratio);
    const int mx = w / 2, my = h / 2, lo = b / 2, hx = w - b / 2 - 1, hy = h - b / 2 - 1;
    const QPoint probes[] = {{lo, lo}, {lo, my}, {lo, hy}, {mx, lo}, {mx, hy}, {hx, my}, {hx, lo}, {hx, hy}}; // kPieces
    for (int i = 0; i < 8; ++i)
        if (image.pixelColor(probes[i] * ratio).rgb() != pieceColour(i, sharp).rgb())
            return i;
    return -1;
}

} // namespace

class TestHiDpi : public QObject
{
    Q_OBJECT
private slots:
    // Skins and compiled-in images: each has a sibling of exactly twice its size.
    void siblings_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::newRow("skins") << QStringLiteral("skins");
        QTest::newRow("library resources") << QStringLiteral("uicomponents/resources");
        QTest::newRow("designer icons") << QStringLiteral("designer/icons");
    }
    void siblings()
    {
        QFETCH(QString, folder);
        const QString root = qEnvironmentVariable("UX_SOURCE_DIR") + QLatin1Char('/') + folder;
        int checked = 0;
        QStringList wrong;
        QDirIterator it(root, {QStringLiteral("*.png")}, QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString path = it.next();
            if (path.endsWith(QLatin1String("@2x.png")))
                continue;
            const QImage plain(path);
            const QImage sharp(path.left(path.size() - 4) + QLatin1String("@2x.png"));
            if (plain.isNull() || sharp.size() != plain.size() * 2)
                wrong << path.mid(root.size() + 1);
            ++checked;
        }
        QVERIFY2(checked > 0, qPrintable(root));
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(QLatin1String(", "))));
    }

    void siblingNames()
    {
        QCOMPARE(UxScaledPixmap::highResolutionPath(QStringLiteral(":/bg/shadow_top.png")), QStringLiteral(":/bg/shadow_top@2x.png"));
        QCOMPARE(UxScaledPixmap::highResolutionPath(QStringLiteral("skin.d/bg/top")), QStringLiteral("skin.d/bg/top@2x"));
        QCOMPARE(UxScaledPixmap::highResolutionPath(QStringLiteral("bg/.png")), QStringLiteral("bg/.png@2x"));
    }

    // The frame draws into whatever device it is given: the device's ratio picks the file.
    void shadowFrame_data()
    {
        QTest::addColumn<qreal>("ratio"); // 0: grabbed on the 200% screen, with a wider border
        QTest::addColumn<bool>("sharp");
        QTest::newRow("100% image") << 1.0 << false;
        QTest::newRow("200% image") << 2.0 << true;
        QTest::newRow("150% image") << 1.5 << true;
        QTest::newRow("200% screen") << 0.0 << true;
    }
    void shadowFrame()
    {
        QFETCH(qreal, ratio);
        QFETCH(bool, sharp);
        UxBaseShadowWidget frame;
        frame.resize(120, 90);
        QImage image(frame.size() * ratio, QImage::Format_ARGB32_Premultiplied);
        if (ratio) {
            image.setDevicePixelRatio(ratio);
            image.fill(Qt::transparent);
            QPainter painter(&image);
            frame.drawFrame(&painter);
        } else {
            frame.setWindowBorderWidth(12);
            image = frame.grab().toImage();
            QCOMPARE(image.size(), QSize(240, 180));
        }
        QCOMPARE(wrongPiece(image, ratio ? ratio : 2, ratio ? 8 : 12, sharp), -1);
    }

    // The message box reads its pieces from the skin; a skin without "@2x" files still gets its plain ones.
    void messageBoxShadow_data()
    {
        QTest::addColumn<bool>("withSharp");
        QTest::newRow("skin with @2x") << true;
        QTest::newRow("skin without @2x") << false;
    }
    void messageBoxShadow()
    {
        QFETCH(bool, withSharp);
        QMap<QString, QByteArray> files;
        for (int i = 0; i < 8; ++i) {
            const QString name = QStringLiteral("bg/shadow_%1").arg(QLatin1String(kPieces[i]));
            files.insert(name + QLatin1String(".png"), solidPng(QSize(4, 4), pieceColour(i, false)));
            if (withSharp)
                files.insert(name + QLatin1String("@2x.png"), solidPng(QSize(8, 8), pieceColour(i, true)));
        }
        const QString skin = withSharp ? QStringLiteral("hidpi-sharp") : QStringLiteral("hidpi-plain");
        UxTest::writeSkin(skin, files);
        UxCore::instance()->setCurrentSkin(skin);
        UxMessageBox box(QStringLiteral("t"), QStringLiteral("x"), QMessageBox::Ok, nullptr);
        const QImage image = box.grab().toImage();
        UxCore::instance()->setCurrentSkin(QStringLiteral("light"));
        QCOMPARE(image.size(), box.size() * 2);
        QCOMPARE(wrongPiece(image, 2.0, 4, withSharp), -1);
    }
};

UX_TEST_MAIN(TestHiDpi)
#include "tst_hidpi.moc"
