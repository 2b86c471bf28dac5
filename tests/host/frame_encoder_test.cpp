#include "electricimage/frame_encoder.h"
#include "electricimage/frame_walker.h"
#include "failure.h"
#include "host/test_folder.h"
#include "host/test_pictures.h"

#include <gtest/gtest.h>

#include <functional>

namespace Host {
namespace {

std::vector<uint8_t> Packed(const std::vector<uint8_t>& row, size_t unit)
{
    std::vector<uint8_t> packets;
    PackRow(row.data(), row.size(), unit, [&](const void* bytes, size_t count) {
        const auto* from = static_cast<const uint8_t*>(bytes);
        packets.insert(packets.end(), from, from + count);
    });
    return packets;
}

std::vector<uint8_t> Unpacked(const std::vector<uint8_t>& packets, size_t unit)
{
    std::vector<uint8_t> row;
    for (size_t at = 0; at < packets.size();) {
        const size_t control = packets[at++];
        const size_t units = control < 0x80 ? 1 : control - 0x7F;
        for (size_t repeat = control < 0x80 ? control + 1 : 1; repeat > 0; --repeat)
            row.insert(row.end(), packets.begin() + static_cast<ptrdiff_t>(at),
                       packets.begin() + static_cast<ptrdiff_t>(at + units * unit));
        at += units * unit;
    }
    return row;
}

TEST(PackRow, MakesRunsAndLiterals)
{
    EXPECT_EQ(Packed({9}, 1), (std::vector<uint8_t>{0x80, 9}));
    EXPECT_EQ(Packed({9, 9}, 1), (std::vector<uint8_t>{0x01, 9}));
    EXPECT_EQ(Packed({1, 2, 2, 3}, 1), (std::vector<uint8_t>{0x80, 1, 0x01, 2, 0x80, 3}));
    EXPECT_EQ(Packed({1, 2, 3, 1, 2, 3}, 3), (std::vector<uint8_t>{0x01, 1, 2, 3}));
    EXPECT_TRUE(Packed({}, 1).empty());
}

TEST(PackRow, UnpacksToTheSameRow)
{
    for (const size_t unit : {1u, 2u, 3u, 4u})
        for (const size_t units : {1u, 2u, 127u, 128u, 129u, 400u}) {
            std::vector<uint8_t> row;
            for (size_t i = 0; i < unit * units; ++i)
                row.push_back(static_cast<uint8_t>(Texture(3, static_cast<int32_t>(i / unit))));
            EXPECT_EQ(Unpacked(Packed(row, unit), unit), row) << unit << " x " << units;
        }
}

class FrameFileTest : public testing::Test {
protected:
    // Makes a file of one frame.
    void Encode(PictureSource& picture, const FrameOptions& options)
    {
        FrameEncoder encoder(fFile, 1);
        encoder.Append(picture, options, "picture");
        encoder.Finish();
    }

    TestFolder fFolder;
    std::filesystem::path fFile = fFolder / "frames.ei";
    MadePicture fGrey{PictureMode::kGrayscale, 7, 3, 1, [](int32_t y, int32_t at) { return 100 * y + at; }};
    MadePicture fRgb{PictureMode::kRgb, 7, 3, 3, Texture};
};

TEST_F(FrameFileTest, FramesAreFoundOneBehindTheOther)
{
    FrameEncoder encoder(fFile, 3);
    FrameOptions depth;
    depth.kind = FrameKind::kDepth;
    depth.range = {2, 8};
    FrameOptions raw;
    raw.raw = true;
    encoder.Append(fGrey, depth, "grey");
    encoder.Append(fRgb, raw, "rgb");
    encoder.Append(fGrey, {}, "grey");
    encoder.Finish();

    EIFrameWalker walker(fFile);
    std::vector<std::string> layouts;
    while (const auto frame = walker.Next()) {
        layouts.push_back(LayoutName(frame->fields));
        EXPECT_EQ(frame->fields.Width(), 7);
        EXPECT_EQ(frame->fields.Height(), 3);
        EXPECT_TRUE(frame->faults.empty()) << frame->faults.front();
        EXPECT_EQ(frame->range.has_value(), frame->number == 1);
    }
    EXPECT_EQ(layouts, (std::vector<std::string>{"depth", "24-bit RGB", "8-bit indexed"}));
    EXPECT_FALSE(walker.EndedEarly());
}

TEST_F(FrameFileTest, SixteenBitsPutTheLowByteFirst)
{
    MadePicture orange(PictureMode::kRgb, 1, 1, 3, [](int32_t, int32_t at) {
        return at == 0 ? 255 : at == 1 ? 132 : 0;
    });
    FrameOptions options;
    options.kind = FrameKind::kRgb16;
    options.raw = true;
    Encode(orange, options);
    const std::string file = fFolder.Get("frames.ei");
    ASSERT_EQ(file.size(), 6u + 32 + 2);
    EXPECT_EQ(file.substr(38), std::string({'\x00', '\x7E'})); // 31 << 10 | 16 << 5
}

TEST_F(FrameFileTest, AFileThatEndsAnywhereIsReportedNotTrusted)
{
    Encode(fRgb, {});
    const std::string whole = fFolder.Get("frames.ei");
    for (size_t length = 0; length < whole.size(); ++length) {
        fFolder.Put("frames.ei", whole.substr(0, length));
        if (length < 6) {
            EXPECT_THROW(EIFrameWalker{fFile}, Failure);
            continue;
        }
        EIFrameWalker walker(fFile);
        const auto frame = walker.Next();
        if (frame) {
            EXPECT_EQ(frame->faults.size(), 1u);
        }
        EXPECT_EQ(frame.has_value(), length >= 38);
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
    fFolder.Put("frames.ei", std::string("\0\5\0\0\0\1", 6) + std::string(header.begin(), header.end()));
    EIFrameWalker walker(fFile);
    EXPECT_EQ(walker.Next()->faults,
              (std::vector<std::string>{"unknown frame type 3", "unknown packing 2", "unknown pixel length of 5 bits",
                                        "bounds without pixels", "data size 0"}));
}

TEST_F(FrameFileTest, WhatIsNotFinishedLeavesNothing)
{
    FrameOptions depth;
    depth.kind = FrameKind::kDepth;
    EXPECT_THROW(Encode(fRgb, depth), Failure);
    EXPECT_EQ(fFolder.FileCount(), 0);
}

} // namespace
} // namespace Host
