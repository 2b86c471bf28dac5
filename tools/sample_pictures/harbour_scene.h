// A harbour at the end of the day, drawn from formulas: the subject of the sample files.
//
// Places are in units of the picture's height, from the middle of the water's edge: x to the right,
// y up. Colours come as light, 0 to 1. Sky and sea change from row to row only, so that run-length
// packing has something to find.
#pragma once

namespace Samples {

struct Light {
    double red = 0, green = 0, blue = 0;
};

// What is seen at a place, and how far away it is.
struct Sight {
    Light light;
    double distance; // metres; infinite for the sky
    bool foreground; // part of the boat in front
};

class HarbourScene {
public:
    // `hour` runs from 0, the afternoon, to 1, the night.
    explicit HarbourScene(double hour);

    Sight Look(double x, double y) const;

private:
    Light Sky(double y) const;
    Sight Above(double x, double y) const;
    Sight Water(double x, double y) const;
    bool Boat(double x, double y, Sight& sight) const;
    bool Town(double x, double y, Sight& sight) const;
    bool Lighthouse(double x, double y, Sight& sight) const;
    Light Shade(const Light& day) const;

    double fHour;
    double fSunY; // height of the sun's middle
};

} // namespace Samples
