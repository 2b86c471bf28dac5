#include "driver/row_exchange.h"
#include "failure.h"
#include "host/test_pictures.h"
#include "support/testing.h"

namespace Host {
namespace {

// A picture of 5 x 4 pixels with four planes, and the module's side of the record.
class RowExchangeTest : public testing::Test {
protected:
    RowExchangeTest()
    {
        std::iota(fPicture.begin(), fPicture.end(), uint8_t{0});
        std::iota(fRecord.planeOrder, fRecord.planeOrder + 4, int16_t{0});
        Shape(0, 3, 4, 20, 1);
    }

    void Shape(int firstPlane, int lastPlane, int pixelStride, int rowStride, int planeStride)
    {
        fRecord.firstPlane = static_cast<int16_t>(firstPlane);
        fRecord.lastPlane = static_cast<int16_t>(lastPlane);
        fRecord.pixelStride = static_cast<int16_t>(pixelStride);
        fRecord.rowStride = rowStride;
        fRecord.planeStride = planeStride;
    }

    Exchange Of(HostRect16 rect, uint8_t* rows)
    {
        fRecord.exchangeRect = rect;
        fRecord.rowsAddress = rows;
        return Exchange::Of(fRecord, fInfo);
    }

    void Deliver(int16_t top, int16_t bottom, uint8_t* rows, int16_t left = 0, int16_t right = 5)
    {
        fDelivery.Take(Of({top, left, bottom, right}, rows));
    }

    PictureInfo fInfo = {PictureMode::kRgb, 5, 4, 4, {}};
    Bytes fPicture = Bytes(5 * 4 * 4);
    HostFormatRecord fRecord = {};
    KeptPicture fSink{fInfo};
    RowDelivery fDelivery{fInfo, fSink};
};

TEST_F(RowExchangeTest, WholeRowsGoStraightThrough)
{
    Deliver(0, 3, fPicture.data());
    EXPECT_FALSE(fDelivery.IsComplete());
    Deliver(3, 4, fPicture.data() + 60);
    fDelivery.Finish();
    EXPECT_EQ(fSink.fPixels, fPicture);
}

TEST_F(RowExchangeTest, PlanesGoWhereTheOrderSays)
{
    for (const auto& order :
         {std::array<int16_t, 4>{3, 0, 1, 2}, std::array<int16_t, 4>{2, 1, 0, 3}}) {
        SCOPED_TRACE(order[0]);
        Bytes turned(fPicture.size());
        for (size_t i = 0; i < turned.size(); ++i)
            turned[i] = fPicture[i / 4 * 4 + static_cast<size_t>(order[i % 4])];
        KeptPicture sink(fInfo);
        RowDelivery delivery(fInfo, sink);
        std::ranges::copy(order, fRecord.planeOrder);
        delivery.Take(Of({0, 0, 4, 5}, turned.data()));
        EXPECT_EQ(sink.fPixels, fPicture);
    }
}

TEST_F(RowExchangeTest, PlanesAndPartsInAnyOrderAreGathered)
{
    Deliver(0, 1, fPicture.data());
    // The second half of the rows before the first one, and each plane alone.
    Bytes plane(5 * 4);
    for (int p = 0; p < 4; ++p) {
        Shape(p, p, 1, 5, 0);
        for (size_t i = 0; i < plane.size(); ++i)
            plane[i] = fPicture[i * 4 + static_cast<size_t>(p)];
        Deliver(2, 4, plane.data() + 10);
        Deliver(1, 2, plane.data() + 8, 3, 5);
        Deliver(1, 2, plane.data() + 5, 0, 3);
    }
    fDelivery.Finish();
    EXPECT_EQ(fSink.fPixels, fPicture);
}

TEST_F(RowExchangeTest, MissingAndRepeatedRowsAreFailures)
{
    Deliver(0, 2, fPicture.data());
    EXPECT_THROW(Deliver(1, 2, fPicture.data()), Failure);
    EXPECT_THROW(fDelivery.Finish(), Failure);

    RowDelivery gathering(fInfo, fSink);
    for (int times = 0; times < 4; ++times)
        gathering.Take(Of({1, 0, 2, 5}, fPicture.data()));
    EXPECT_THROW(gathering.Finish(), Failure); // four rows came, but three are missing
}

TEST_F(RowExchangeTest, NothingOutsideThePictureIsTouched)
{
    for (const HostRect16 rect :
         {HostRect16{0, 0, 5, 5}, {-1, 0, 1, 5}, {0, 0, 1, 6}, {2, 0, 1, 5}})
        EXPECT_THROW(Of(rect, fPicture.data()), Failure)
            << rect.top << ", " << rect.left << ", " << rect.bottom << ", " << rect.right;
    EXPECT_THROW(Of({0, 0, 1, 5}, nullptr), Failure);
    fRecord.planeOrder[2] = 4;
    EXPECT_THROW(Of({0, 0, 1, 5}, fPicture.data()), Failure);
    fRecord.planeOrder[2] = 2;
    fRecord.lastPlane = 4;
    EXPECT_THROW(Of({0, 0, 1, 5}, fPicture.data()), Failure);
}

TEST_F(RowExchangeTest, RowsAreSuppliedAsTheModuleAsks)
{
    MadePicture picture(PictureMode::kRgb, 5, 4, 4,
                        [this](int32_t y, int32_t at) { return fPicture[20 * y + at]; });
    Bytes rows(40);
    SupplyRows(Of({1, 0, 3, 5}, rows.data()), picture);
    EXPECT_TRUE(std::equal(rows.begin(), rows.end(), fPicture.begin() + 20));

    Bytes greens(2); // of two columns
    Shape(1, 1, 1, 20, 1);
    SupplyRows(Of({3, 2, 4, 4}, greens.data()), picture);
    EXPECT_EQ(greens, (Bytes{69, 73}));
}

} // namespace
} // namespace Host
