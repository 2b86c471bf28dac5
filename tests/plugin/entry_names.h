// The exported entries, in the order of their projects.
#pragma once

#define FOR_EACH_OTHER_FORMAT(X) X(EntryBMP) X(EntryGIF) X(EntryKIFF) X(EntryOpenEXR) X(EntryPNG) X(EntryTarga)
#define FOR_EACH_FILTER(X)                                                                                             \
    X(EntryColorHalftone)                                                                                              \
    X(EntryCropPhotos)                                                                                                 \
    X(EntryCrystallize)                                                                                                \
    X(EntryDeinterlace)                                                                                                \
    X(EntryDisplace)                                                                                                   \
    X(EntryExtrude)                                                                                                    \
    X(EntryFibers)                                                                                                     \
    X(EntryHsbhsl)                                                                                                     \
    X(EntryLensFlare)                                                                                                  \
    X(EntryMezzotint)                                                                                                  \
    X(EntryRadialBlur)                                                                                                 \
    X(EntryRipple)                                                                                                     \
    X(EntryPinch)                                                                                                      \
    X(EntryPointillize)                                                                                                \
    X(EntryPolar)                                                                                                      \
    X(EntryShear)                                                                                                      \
    X(EntrySmartBlur)                                                                                                  \
    X(EntrySpherize)                                                                                                   \
    X(EntryTiles)                                                                                                      \
    X(EntryTwirl)                                                                                                      \
    X(EntryWave)                                                                                                       \
    X(EntryWind)                                                                                                       \
    X(EntryZigZag)
#define FOR_EACH_EXPORT(X) X(EntryInkwrightExport)
