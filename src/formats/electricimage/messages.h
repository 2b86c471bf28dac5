// What the ElectricImage code tells the user, each text after the key that finds its translation.
#pragma once

namespace Project::Message {

inline constexpr char kSkipFailed[] = "$$$/private/EI/Err1=File error while skipping unread frames";
inline constexpr char kUnknownPacking[] =
    "$$$/private/EI/Err2=Unknown frame packing, contact author";
inline constexpr char kUnknownAlphaDepth[] =
    "$$$/private/EI/Err3=Unknown alpha depth, contact author";
inline constexpr char kUnknownBitDepth[] = "$$$/private/EI/Err4=Unknown bit depth, contact author";
inline constexpr char kPlaneDepth[] = "$$$/private/EI/Err6=Internal plane depth error";
inline constexpr char kRewindFailed[] = "$$$/private/EI/Err7=File error while seeking";
inline constexpr char kWriteHeader[] = "$$$/private/EI/Err8=File error, writing header";
inline constexpr char kWriteFrame[] = "$$$/private/EI/Err9=File error, writing frame";
inline constexpr char kWriteLut[] = "$$$/private/EI/Err10=File error, writing LUT";
inline constexpr char kWritePixelLength[] = "$$$/private/EI/Err11=Pixel length error";
inline constexpr char kWriteRunLength[] = "$$$/private/EI/Err12=File error, writing run length";
inline constexpr char kWriteRunValue[] = "$$$/private/EI/Err13=File error, writing run value";
inline constexpr char kWriteLiteralLength[] = "$$$/private/EI/Err14=File error, writing run length";
inline constexpr char kWriteLiteralValue[] = "$$$/private/EI/Err15=File error, writing run value";
inline constexpr char kMatchUnderrun[] = "$$$/private/EI/Err16=Matchlen underrun!";
inline constexpr char kWriteRawRow[] = "$$$/private/EI/Err17=File error, writing uncompressed row";
inline constexpr char kSeekToHeader[] = "$$$/private/EI/Err19=File error while seeking";
inline constexpr char kPatchHeader[] = "$$$/private/EI/Err20=File error, writing header";
inline constexpr char kPatchFrame[] = "$$$/private/EI/Err21=File error, writing frame";
inline constexpr char kReadPixelLength[] = "$$$/private/EI/Err22=Pixel length error";
inline constexpr char kUnpackFailed[] = "$$$/private/EI/Err23=RLE Decompression error";

} // namespace Project::Message
