#include "platform/pasteboard/KeptFormats.h"
#include "platform/pasteboard/PictureFormats.h"

#include <QBuffer>
#include <QImage>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

TEST(KeptFormats, theMostUsefulComesFirstOnePictureIsEnoughAndNothingHarmfulIsAskedFor)
{
    const QStringList offered{u"TARGETS"_s,        u"DELETE"_s,        u"PIXMAP"_s,
                              u"UTF8_STRING"_s,    u"x-office/cell"_s, u"image/tiff"_s,
                              u"image/x-MS-bmp"_s, u"image/png"_s,     u"image/svg+xml"_s,
                              u"text/html"_s,      u"SAVE_TARGETS"_s};
    const QList<QStringList> plan{{u"text/html"_s},
                                  {u"image/png"_s, u"image/x-MS-bmp"_s, u"image/tiff"_s},
                                  {u"x-office/cell"_s},
                                  {u"image/svg+xml"_s}};
    EXPECT_EQ(KeptFormats::plan(offered, {u"UTF8_STRING"_s}), plan);
    EXPECT_EQ(KeptFormats::plan(offered, {}).first(), QStringList{u"UTF8_STRING"_s});
}

TEST(KeptFormats, aTextThatIsListedForADrawingIsNotAskedForAgain)
{
    const QString drawing = u"image/svg+xml"_s;
    EXPECT_EQ(KeptFormats::plan({drawing, u"text/plain"_s}, {}), QList<QStringList>{{drawing}});
}

TEST(PictureFormats, aPictureCanBeHadInWhatItIsListedAs)
{
    QImage image(3, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    QBuffer bitmap;
    ASSERT_TRUE(image.save(&bitmap, "bmp"));
    const QStringList names{u"image/png"_s, u"image/jpeg"_s, u"image/x-unheard-of"_s,
                            u"text/html"_s};
    EXPECT_EQ(PictureFormats::writable(bitmap.data(), names), names.mid(0, 2));
    EXPECT_EQ(PictureFormats::writable("no picture", names), QStringList());
    const auto png = PictureFormats::convert(bitmap.data(), PictureFormats::kPng);
    ASSERT_TRUE(png && png->startsWith("\x89PNG"));
    EXPECT_EQ(QImage::fromData(*png).convertToFormat(image.format()), image);
    // Its header promised more than there is.
    EXPECT_EQ(PictureFormats::convert(png->left(40), u"image/bmp"_s), std::nullopt);
}

} // namespace
