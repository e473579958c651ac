#include "platform/pasteboard/X11Stage.h"

#include <QBuffer>
#include <QImage>

#include <gtest/gtest.h>

namespace {

using namespace std::chrono_literals;

QByteArray picture(const char *encoding)
{
    QImage image(3, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    QBuffer buffer;
    image.save(&buffer, encoding);
    return buffer.data();
}

/// A word processor's copy.
XcbClient::Formats document()
{
    return {{"UTF8_STRING", "text"},
            {"text/rtf", "{\\rtf1 text}"},
            {"text/html", "<b>text</b>"},
            {"image/png", picture("png")},
            {"image/bmp", picture("bmp")},
            {"application/x-document", QByteArray(500'000, 'x')},
            {"DELETE", ""}};
}

class X11Kept : public testing::Test
{
protected:
    /// The owner copies, and the application wants that or not.
    void copy(XcbClient &owner, const XcbClient::Formats &formats, bool isWanted = true)
    {
        const qint64 count = m_stage->changeCount() + 1;
        owner.own("CLIPBOARD", formats);
        ASSERT_TRUE(m_stage.reaches(count, {&owner}));
        if (isWanted)
            m_stage->acknowledge(count);
        else
            m_stage->discard(count);
    }
    /// Whether the owner, which asks for its copy to be saved, is told that it is.
    bool isSaved(XcbClient &owner)
    {
        owner.ask("CLIPBOARD_MANAGER", "SAVE_TARGETS");
        return pumpUntil({&owner}, [&] { return owner.isAnswered(); }) && !owner.isRefused();
    }
    X11Stage m_stage;
    XcbClient m_owner;
};

TEST_F(X11Kept, everythingThatADeadOwnerListedOutlivesItOnceItHadRest)
{
    const XcbClient::Formats formats = document();
    copy(m_owner, formats);
    ASSERT_TRUE(pumpUntil({&m_owner}, [&] {
        return m_owner.requests().contains("application/x-document") &&
               m_owner.hasSent(m_owner.sentBytes());
    }));
    EXPECT_EQ(m_owner.requests().count("DELETE"), 0);
    EXPECT_EQ(m_owner.requests().count("image/bmp"), 0) << "it is the same picture";
    m_owner.die();
    for (const QByteArray target : {"UTF8_STRING", "text/rtf", "text/html", "image/png"})
        EXPECT_TRUE(m_stage.isServed(formats[target], target)) << target.constData();
    EXPECT_EQ(QImage::fromData(m_stage.paste("image/bmp").value_or(QByteArray())).pixelColor(2, 1),
              QColor(Qt::red));
    EXPECT_EQ(m_stage.paste("DELETE"), std::nullopt);
    EXPECT_EQ(m_stage->changeCount(), 1);
    EXPECT_EQ(m_stage->contents()->text, QStringLiteral("text"));
}

TEST_F(X11Kept, aPictureAloneIsKeptAndOfferedAsPng)
{
    copy(m_owner, {{"image/bmp", picture("bmp")}});
    EXPECT_TRUE(isSaved(m_owner));
    m_owner.die();
    EXPECT_TRUE(m_stage.isServed(picture("bmp"), "image/bmp"));
    EXPECT_EQ(QImage::fromData(m_stage.paste("image/png").value_or(QByteArray()), "png").size(),
              QSize(3, 2));
    EXPECT_EQ(m_stage.paste("UTF8_STRING"), std::nullopt);
}

TEST_F(X11Kept, anOwnerThatAsksIsToldThatItIsSavedOnceAllIs)
{
    const qint64 count = 1;
    m_owner.own("CLIPBOARD", document());
    m_owner.ask("CLIPBOARD_MANAGER", "SAVE_TARGETS");
    ASSERT_TRUE(m_stage.reaches(count, {&m_owner}));
    EXPECT_FALSE(m_owner.isAnswered()) << "nobody has examined it yet";
    m_stage->acknowledge(count);
    ASSERT_TRUE(pumpUntil({&m_owner}, [&] { return m_owner.isAnswered(); }));
    EXPECT_FALSE(m_owner.isRefused());
    m_owner.die();
    EXPECT_TRUE(m_stage.isServed(QByteArray(500'000, 'x'), "application/x-document"));
}

TEST_F(X11Kept, anOwnerThatEmptiesTheClipboardAsItEndsIsOutlivedByWhatItHadSaved)
{
    m_stage.stopTime();
    copy(m_owner, document());
    ASSERT_TRUE(isSaved(m_owner));
    m_owner.disown("CLIPBOARD");
    m_owner.die();
    EXPECT_TRUE(m_stage.isServed(picture("png"), "image/png"));
    EXPECT_EQ(m_stage->changeCount(), 1);
}

TEST_F(X11Kept, anOwnerThatEmptiesTheClipboardAndStaysMeansIt)
{
    m_stage.stopTime();
    const auto isEmptied = [&] {
        m_stage.advance(5s);
        return m_stage->changeCount() == 2;
    };
    copy(m_owner, document());
    ASSERT_TRUE(isSaved(m_owner));
    m_owner.disown("CLIPBOARD");
    EXPECT_TRUE(pumpUntil({&m_owner}, isEmptied));
    EXPECT_FALSE(m_stage->contents());

    copy(m_owner, document());
    XcbClient bystander;
    bystander.ask("CLIPBOARD_MANAGER", "SAVE_TARGETS");
    ASSERT_TRUE(pumpUntil({&m_owner, &bystander}, [&] { return bystander.isAnswered(); }));
    m_owner.disown("CLIPBOARD");
    EXPECT_TRUE(m_stage.reaches(4, {&m_owner})) << "nobody else asks for it";
    m_owner.die();
    EXPECT_EQ(m_stage.paste("UTF8_STRING"), std::nullopt);
}

TEST_F(X11Kept, aDiscardedOrSecretCopyIsNeitherReadNorSaidToBeSaved)
{
    copy(m_owner, document(), false);
    EXPECT_FALSE(isSaved(m_owner));
    EXPECT_EQ(m_owner.requests().count("image/png"), 0);
    XcbClient::Formats secret = document();
    secret["x-kde-passwordManagerHint"] = "secret";
    copy(m_owner, secret);
    EXPECT_FALSE(isSaved(m_owner));
    EXPECT_EQ(m_owner.requests().count("image/png"), 0);
    copy(m_owner, {{"UTF8_STRING", "ignored"}}, false);
    m_owner.die();
    EXPECT_EQ(m_stage.paste("UTF8_STRING"), std::nullopt);
}

TEST_F(X11Kept, copiesInARowLeaveNoTimeToReadAllButTheLast)
{
    for (int i = 0; i < 5; ++i)
        copy(m_owner, document());
    ASSERT_TRUE(pumpUntil({&m_owner},
                          [&] { return m_owner.requests().contains("application/x-document"); }));
    EXPECT_EQ(m_owner.requests().count("image/png"), 1);
}

struct LimitRow
{
    const char *name;
    QByteArray hangsOn;
    qint64 maxKept;
};

using X11KeptLimits = testing::TestWithParam<LimitRow>;

TEST_P(X11KeptLimits, leaveWhatCameBeforeAndAreNotSaidToBeSaved)
{
    PasteboardLimits limits;
    limits.maxKept = GetParam().maxKept;
    X11Stage stage(limits);
    stage.stopTime();
    XcbClient owner;
    owner.manners.hangsOn = GetParam().hangsOn;
    owner.own("CLIPBOARD", document());
    ASSERT_TRUE(stage.reaches(1, {&owner}));
    stage->acknowledge(1);
    owner.ask("CLIPBOARD_MANAGER", "SAVE_TARGETS");
    const QByteArray hangsOn = GetParam().hangsOn;
    if (!hangsOn.isEmpty()) {
        ASSERT_TRUE(pumpUntil({&owner}, [&] { return owner.requests().contains(hangsOn); }));
        stage.advance(2s);
    }
    ASSERT_TRUE(pumpUntil({&owner}, [&] { return owner.isAnswered(); }));
    EXPECT_TRUE(owner.isRefused());
    owner.die();
    EXPECT_TRUE(stage.isServed("<b>text</b>", "text/html"));
    EXPECT_EQ(stage.paste("application/x-document"), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(All, X11KeptLimits,
                         testing::Values(LimitRow{"hungOwner", "application/x-document",
                                                  PasteboardLimits::kMaxFormat},
                                         LimitRow{"tooMuch", {}, 400'000}),
                         [](const auto &row) { return std::string(row.param.name); });

TEST(X11KeptUnexamined, isRefusedToAnOwnerThatWaitsAfterAWhile)
{
    X11Stage stage;
    stage.stopTime();
    XcbClient owner;
    owner.copy("never examined");
    ASSERT_TRUE(stage.reaches(1, {&owner}));
    owner.ask("CLIPBOARD_MANAGER", "SAVE_TARGETS");
    ASSERT_TRUE(pumpUntil({&owner}, [&] {
        stage.advance(5s);
        return owner.isAnswered();
    }));
    EXPECT_TRUE(owner.isRefused());
}

} // namespace
