// Gestures of fingers on a touchpad or screen, as a view's list keeps them.
#pragma once

#include <memory>

namespace Kesto {

class CGesture {
public:
    CGesture() = default;
    CGesture(const CGesture&) = delete;
    CGesture& operator=(const CGesture&) = delete;
    virtual ~CGesture() = default;

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

    float fDeltaX;
    float fDeltaY;
};

class CRotateGesture final : public CGesture {
public:
    explicit CRotateGesture(float angle) : fAngle(angle) {}

    float fAngle;
};

class CMagnifyGesture final : public CGesture {
public:
    explicit CMagnifyGesture(float factor) : fFactor(factor) {}

    float fFactor;
};

} // namespace Kesto
