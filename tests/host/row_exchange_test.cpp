#include "driver/row_exchange.h"
#include "failure.h"
#include "host/test_pictures.h"

#include <gtest/gtest.h>

#include <numeric>

namespace Host {
namespace {

class CollectingSink final : public PictureSink {
public:
    explicit CollectingSink(size_t rowBytes) : fRowBytes(rowBytes) {}
    void Begin(const PictureInfo&) override {}
    void PutRows(const uint8_t* rows, size_t stride, int32_t count) override
    {
        for (; count > 0; --count, rows += stride)
            fPixels.insert(fPixels.end(), rows, rows + fRowBytes);
    }
    void Finish() override {}

    std::vector<uint8_t> fPixels;

private:
    size_t fRowBytes;
};

// A picture of 5 x 4 pixels with four planes, and the module's side of the record.
class RowExchangeTest : public testing::Test {
protected:
    RowExchangeTest()
    {
        std::iota(fPicture.begin(), fPicture.end(), uint8_t{0});
        fRecord.lastPlane = 3;
        fRecord.pixelStride = 4;
        fRecord.rowStride = 20;
        fRecord.planeStride = 1;
        fRecord.rowsAddress = fPicture.data();
        for (int16_t i = 0; i < 4; ++i)
            fRecord.planeOrder[i] = i;
    }

    void Deliver(int16_t top, int16_t bottom, void* rows, int16_t left = 0, int16_t right = 5)
    {
        fRecord.exchangeRect = {top, left, bottom, right};
        fRecord.rowsAddress = rows;
        fDelivery.Take(Exchange::Of(fRecord, fInfo));
    }

    std::vector<uint8_t> Finish()
    {
        fDelivery.Finish();
        return fSink.fPixels;
    }

    PictureInfo fInfo = {PictureMode::kRgb, 5, 4, 4, {}};
    std::vector<uint8_t> fPicture = std::vector<uint8_t>(5 * 4 * 4);
    HostFormatRecord fRecord = {};
    CollectingSink fSink{20};
    RowDelivery fDelivery{fInfo, fSink};
};

TEST_F(RowExchangeTest, WholeRowsGoStraightThrough)
{
    Deliver(0, 3, fPicture.data());
    EXPECT_FALSE(fDelivery.IsComplete());
    Deliver(3, 4, fPicture.data() + 60);
    EXPECT_EQ(Finish(), fPicture);
}

TEST_F(RowExchangeTest, PlanesGoWhereTheOrderSays)
{
    for (const auto& order : {std::array<int16_t, 4>{3, 0, 1, 2}, std::array<int16_t, 4>{2, 1, 0, 3}}) {
        std::vector<uint8_t> turned(fPicture.size());
        for (size_t i = 0; i < turned.size(); ++i)
            turned[i] = fPicture[i / 4 * 4 + static_cast<size_t>(order[i % 4])];
        CollectingSink sink(20);
        RowDelivery delivery(fInfo, sink);
        std::ranges::copy(order, fRecord.planeOrder);
        fRecord.exchangeRect = {0, 0, 4, 5};
        fRecord.rowsAddress = turned.data();
        delivery.Take(Exchange::Of(fRecord, fInfo));
        EXPECT_EQ(sink.fPixels, fPicture);
    }
}

TEST_F(RowExchangeTest, PlanesAndPartsInAnyOrderAreGathered)
{
    Deliver(0, 1, fPicture.data());
    // The second half of the rows before the first one, and each plane alone.
    std::vector<uint8_t> plane(5 * 4);
    fRecord.pixelStride = 1;
    fRecord.rowStride = 5;
    fRecord.planeStride = 0;
    for (int16_t p = 0; p < 4; ++p) {
        for (size_t i = 0; i < plane.size(); ++i)
            plane[i] = fPicture[i * 4 + static_cast<size_t>(p)];
        fRecord.firstPlane = fRecord.lastPlane = p;
        Deliver(2, 4, plane.data() + 10);
        Deliver(1, 2, plane.data() + 8, 3, 5);
        Deliver(1, 2, plane.data() + 5, 0, 3);
    }
    EXPECT_EQ(Finish(), fPicture);
}

TEST_F(RowExchangeTest, MissingAndRepeatedRowsAreFailures)
{
    Deliver(0, 2, fPicture.data());
    EXPECT_THROW(Deliver(1, 2, fPicture.data()), Failure);
    EXPECT_THROW(fDelivery.Finish(), Failure);
}

TEST_F(RowExchangeTest, NothingOutsideThePictureIsTouched)
{
    EXPECT_THROW(Deliver(0, 5, fPicture.data()), Failure);
    EXPECT_THROW(Deliver(-1, 1, fPicture.data()), Failure);
    EXPECT_THROW(Deliver(0, 1, fPicture.data(), 0, 6), Failure);
    EXPECT_THROW(Deliver(2, 1, fPicture.data()), Failure);
    EXPECT_THROW(Deliver(0, 1, nullptr), Failure);
    fRecord.planeOrder[2] = 4;
    EXPECT_THROW(Deliver(0, 1, fPicture.data()), Failure);
    fRecord.planeOrder[2] = 2;
    fRecord.lastPlane = 4;
    EXPECT_THROW(Deliver(0, 1, fPicture.data()), Failure);
}

TEST_F(RowExchangeTest, RowsAreSuppliedAsTheModuleAsks)
{
    MadePicture picture(PictureMode::kRgb, 5, 4, 4, [this](int32_t y, int32_t at) { return fPicture[20 * y + at]; });
    std::vector<uint8_t> rows(40);
    fRecord.exchangeRect = {1, 0, 3, 5};
    fRecord.rowsAddress = rows.data();
    SupplyRows(Exchange::Of(fRecord, fInfo), picture);
    EXPECT_TRUE(std::equal(rows.begin(), rows.end(), fPicture.begin() + 20));

    // The green plane of two columns.
    std::vector<uint8_t> greens(2);
    fRecord.exchangeRect = {3, 2, 4, 4};
    fRecord.firstPlane = fRecord.lastPlane = 1;
    fRecord.pixelStride = 1;
    fRecord.rowsAddress = greens.data();
    SupplyRows(Exchange::Of(fRecord, fInfo), picture);
    EXPECT_EQ(greens, (std::vector<uint8_t>{69, 73}));
}

} // namespace
} // namespace Host
