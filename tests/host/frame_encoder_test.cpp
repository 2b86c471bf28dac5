#include "electricimage/frame_encoder.h"
#include "electricimage/frame_walker.h"
#include "failure.h"
#include "host/test_pictures.h"
#include "support/ei_file.h"
#include "support/temporary_folder.h"
#include "support/testing.h"

namespace Host {
namespace {

Bytes Packed(const Bytes& row, size_t unit)
{
    Bytes packets;
    PackRow(row.data(), row.size(), unit, [&](const void* bytes, size_t count) {
        const auto* from = static_cast<const uint8_t*>(bytes);
        packets.insert(packets.end(), from, from + count);
    });
    return packets;
}

TEST(PackRow, MakesRunsAndLiterals)
{
    EXPECT_EQ(Packed({9}, 1), (Bytes{0x80, 9}));
    EXPECT_EQ(Packed({9, 9}, 1), (Bytes{0x01, 9}));
    EXPECT_EQ(Packed({1, 2, 2, 3}, 1), (Bytes{0x80, 1, 0x01, 2, 0x80, 3}));
    EXPECT_EQ(Packed({1, 2, 3, 1, 2, 3}, 3), (Bytes{0x01, 1, 2, 3}));
    EXPECT_TRUE(Packed({}, 1).empty());
    for (const size_t unit : {1u, 2u, 3u, 4u})
        for (const size_t units : {1u, 2u, 127u, 128u, 129u, 400u}) {
            Bytes row;
            for (size_t i = 0; i < unit * units; ++i)
                row.push_back(static_cast<uint8_t>(Texture(3, static_cast<int32_t>(i / unit))));
            EXPECT_EQ(Testing::DecodePackets(Packed(row, unit), unit, row.size()), row)
                << unit << " x " << units;
        }
}

class FrameFileTest : public testing::Test {
protected:
    // Makes a file of one frame and returns its bytes.
    std::string Encode(PictureSource& picture, const FrameOptions& options)
    {
        FrameEncoder encoder(fFile, 1);
        encoder.Append(picture, options, "picture");
        encoder.Finish();
        return fFolder.Get("frames.ei");
    }

    TemporaryFolder fFolder;
    std::filesystem::path fFile = fFolder / "frames.ei";
    MadePicture fRgb{PictureMode::kRgb, 7, 3, 3, Texture};
};

TEST_F(FrameFileTest, SixteenBitsPutTheLowByteFirst)
{
    MadePicture orange(PictureMode::kRgb, 1, 1, 3,
                       [](int32_t, int32_t at) { return at ? 132 * (2 - at) : 255; });
    const std::string file = Encode(orange, {.kind = FrameKind::kRgb16, .raw = true});
    ASSERT_EQ(file.size(), 6u + 32 + 2);
    EXPECT_EQ(file.substr(38), std::string({'\x00', '\x7E'})); // 31 << 10 | 16 << 5
}

TEST_F(FrameFileTest, AFileThatEndsAnywhereIsReportedNotTrusted)
{
    const std::string whole = Encode(fRgb, {});
    for (size_t length = 0; length < whole.size(); ++length) {
        SCOPED_TRACE(length);
        fFolder.Put("frames.ei", whole.substr(0, length));
        if (length < 6) {
            EXPECT_THROW(EIFrameWalker{fFile}, Failure);
            continue;
        }
        EIFrameWalker walker(fFile);
        const auto frame = walker.Next();
        EXPECT_EQ(frame.has_value(), length >= 38);
        EXPECT_EQ(frame ? frame->faults.size() : 1, 1u);
        EXPECT_EQ(walker.EndedEarly(), !frame);
    }
}

TEST_F(FrameFileTest, FaultsOfAHeaderAreNamed)
{
    EIFrameFields fields;
    fields.bitDepth = 5;
    fields.frameType = 3;
    fields.packing = 2;
    fields.bottom = -4;
    const auto header = EncodeFrameHeader(fields);
    fFolder.Put("frames.ei",
                std::string("\0\5\0\0\0\1", 6) + std::string(header.begin(), header.end()));
    EXPECT_EQ(EIFrameWalker(fFile).Next()->faults,
              (std::vector<std::string>{"unknown frame type 3", "unknown packing 2",
                                        "unknown pixel length of 5 bits", "bounds without pixels",
                                        "data size 0"}));
}

TEST_F(FrameFileTest, WhatIsNotFinishedLeavesNothing)
{
    EXPECT_THROW(Encode(fRgb, {.kind = FrameKind::kDepth}), Failure);
    EXPECT_EQ(fFolder.Count(), 0);
}

} // namespace
} // namespace Host
