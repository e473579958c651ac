#include "preview/PreviewMessages.h"
#include "preview/FontContent.h"
#include "preview/ImageContent.h"
#include "preview/ListContent.h"
#include "preview/PdfContent.h"
#include "preview/TextContent.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using Content = std::shared_ptr<const PreviewContent>;

QImage picture()
{
    QImage image(2, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    return image;
}

Content specimen(qreal width)
{
    FontContent::Line line;
    line.outline.addEllipse(0, 0, 5, 5);
    line.width = width;
    return std::make_shared<FontContent>(QStringLiteral("Family"), std::vector{line});
}

Content text(const QString &text)
{
    return std::make_shared<TextContent>(text, TextContent::Form::Code, true);
}

Content document(QSizeF page)
{
    return std::make_shared<PdfContent>(std::vector{page}, 1, picture());
}

Content list(qsizetype count)
{
    const QStringList entries(count, QStringLiteral("entry"));
    return std::make_shared<ListContent>(ListCount{count, 7, true}, entries);
}

Content frames(size_t count)
{
    return std::make_shared<ImageContent>(std::vector<ImageContent::Frame>(count, {picture(), 40}),
                                          true);
}

bool isTaken(const QByteArray &bytes)
{
    return PreviewMessages::decodedAnswer(bytes).has_value();
}

TEST(PreviewMessagesTest, anAnswerIsTakenWholeAndInNoOtherLength)
{
    for (const Content &content :
         {frames(2), list(3), document({10, 20}), specimen(5), text(QStringLiteral("a\nb"))}) {
        const QByteArray whole = PreviewMessages::encoded(PreviewAnswer{content});
        const auto answer = PreviewMessages::decodedAnswer(whole);
        ASSERT_TRUE(answer && answer->content);
        // Nothing is lost on the way.
        EXPECT_EQ(PreviewMessages::encoded(*answer), whole);
        EXPECT_FALSE(isTaken(whole + '\0'));
        for (qsizetype size = 0; size < whole.size(); ++size)
            EXPECT_FALSE(isTaken(whole.left(size))) << size << " of " << whole.size();
    }
    EXPECT_TRUE(isTaken(PreviewMessages::encoded(PreviewAnswer{})));
}

TEST(PreviewMessagesTest, whatNoViewCouldShowInAMomentIsNoAnswer)
{
    constexpr qreal kNoNumber = std::numeric_limits<qreal>::quiet_NaN();
    const Content kTooMuch[] = {
        frames(ImageContent::kMaxFrames + 1),
        list(ListContent::kMaxEntries + 1),
        document({0, 10}),
        document({10, kNoNumber}),
        specimen(kNoNumber),
        text(QString(TextContent::kMaxOfLine + 10, u'x')),
        text(QString(TextContent::kMaxLines + 10, u'\n')),
        text(QStringLiteral("xxxxxxxxx\n").repeated(TextContent::kMaxCharacters / 10 + 10)),
    };
    for (const Content &content : kTooMuch)
        EXPECT_FALSE(isTaken(PreviewMessages::encoded(PreviewAnswer{content})))
            << &content - kTooMuch;
}

} // namespace
