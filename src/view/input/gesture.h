// What a view's list keeps: gestures of fingers on a touchpad or screen, and makers of trackers.
#pragma once

#include <cstdint>
#include <memory>

namespace Kesto {

class CGesture {
public:
    // Kinds, with what tells two of a kind apart.
    static constexpr std::uint32_t kKind_Tracker = 0; // the value of the button's id
    static constexpr std::uint32_t kKind_Swipe = 1;   // the direction
    static constexpr std::uint32_t kKind_Rotate = 2;  // 0
    static constexpr std::uint32_t kKind_Magnify = 3; // 0

    CGesture() = default;
    CGesture(const CGesture&) = delete;
    CGesture& operator=(const CGesture&) = delete;
    virtual ~CGesture() = default;

    virtual bool Matches(std::uint32_t kind, std::uint32_t detail) const = 0;

    std::unique_ptr<CGesture> fNext; // in the view's list
};

class CSwipeGesture final : public CGesture {
public:
    CSwipeGesture(float deltaX, float deltaY) : fDeltaX(deltaX), fDeltaY(deltaY) {}

    // One of eight codes, by the signs of the deltas: 0 and 2 go along x alone, 1 and 3 along y or
    // nowhere, 4 and 5 to positive y, 7 and 6 to negative y, each pair with x negative first.
    int Direction() const
    {
        if (fDeltaX > 0.0F)
            return fDeltaY > 0.0F ? 5 : fDeltaY < 0.0F ? 6 : 2;
        if (fDeltaX < 0.0F)
            return fDeltaY > 0.0F ? 4 : fDeltaY < 0.0F ? 7 : 0;
        return fDeltaY > 0.0F ? 1 : 3;
    }

    bool Matches(std::uint32_t kind, std::uint32_t detail) const override
    {
        return kind == kKind_Swipe && detail == static_cast<std::uint32_t>(Direction());
    }

    float fDeltaX;
    float fDeltaY;
};

class CRotateGesture final : public CGesture {
public:
    explicit CRotateGesture(float angle) : fAngle(angle) {}

    bool Matches(std::uint32_t kind, std::uint32_t detail) const override
    {
        return kind == kKind_Rotate && detail == 0;
    }

    float fAngle;
};

class CMagnifyGesture final : public CGesture {
public:
    explicit CMagnifyGesture(float factor) : fFactor(factor) {}

    bool Matches(std::uint32_t kind, std::uint32_t detail) const override
    {
        return kind == kKind_Magnify && detail == 0;
    }

    float fFactor;
};

} // namespace Kesto
