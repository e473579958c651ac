#include "platform/pasteboard/KeptFormats.h"
#include "platform/pasteboard/PictureFormats.h"

#include <QBuffer>
#include <QImage>

#include <gtest/gtest.h>

namespace {

TEST(KeptFormats, theMostUsefulComesFirstOnePictureIsEnoughAndNothingHarmfulIsAskedFor)
{
    const QStringList offered{QStringLiteral("TARGETS"),        QStringLiteral("DELETE"),
                              QStringLiteral("PIXMAP"),         QStringLiteral("UTF8_STRING"),
                              QStringLiteral("x-office/cell"),  QStringLiteral("image/tiff"),
                              QStringLiteral("image/x-MS-bmp"), QStringLiteral("image/png"),
                              QStringLiteral("image/svg+xml"),  QStringLiteral("text/html"),
                              QStringLiteral("SAVE_TARGETS")};
    const QList<QStringList> plan{{QStringLiteral("text/html")},
                                  {QStringLiteral("image/png"), QStringLiteral("image/x-MS-bmp"),
                                   QStringLiteral("image/tiff")},
                                  {QStringLiteral("x-office/cell")},
                                  {QStringLiteral("image/svg+xml")}};
    EXPECT_EQ(KeptFormats::plan(offered, {QStringLiteral("UTF8_STRING")}), plan);
    EXPECT_EQ(KeptFormats::plan(offered, {}).first(), QStringList{QStringLiteral("UTF8_STRING")});
}

TEST(KeptFormats, aTextThatIsListedForADrawingIsNotAskedForAgain)
{
    const QString drawing = QStringLiteral("image/svg+xml");
    EXPECT_EQ(KeptFormats::plan({drawing, QStringLiteral("text/plain")}, {}),
              QList<QStringList>{{drawing}});
}

TEST(PictureFormats, aPictureCanBeHadInWhatItIsListedAs)
{
    QImage image(3, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    QBuffer bitmap;
    ASSERT_TRUE(image.save(&bitmap, "bmp"));
    const QStringList names{QStringLiteral("image/png"), QStringLiteral("image/jpeg"),
                            QStringLiteral("image/x-unheard-of"), QStringLiteral("text/html")};
    EXPECT_EQ(PictureFormats::writable(bitmap.data(), names), names.mid(0, 2));
    EXPECT_EQ(PictureFormats::writable("no picture", names), QStringList());
    const auto png = PictureFormats::convert(bitmap.data(), PictureFormats::kPng);
    ASSERT_TRUE(png && png->startsWith("\x89PNG"));
    EXPECT_EQ(QImage::fromData(*png).convertToFormat(image.format()), image);
    // Its header promised more than there is.
    EXPECT_EQ(PictureFormats::convert(png->left(40), QStringLiteral("image/bmp")), std::nullopt);
}

} // namespace
