// Constants of the inverse error functions. Numbers by tools/approx from the lines marked //:.
#pragma once

namespace orvik::zym {

inline constexpr double kErfInvSlope = 0x1.c5bf891b4ef6bp-1;  //: = sqrt(pi) / 2
inline constexpr double kRoot2Head = 0x1.6a09e667f3bcdp0;     //: = sqrt(2)
inline constexpr double kRoot2Tail = -0x1.bdd3413b26456p-54;  //: = sqrt(2) - kRoot2Head
inline constexpr float kRoot2In32 = 0x1.6a09e6p0f;            //: = sqrt(2)

// The middles of the rows of kErfInvRowsLA.
//: = (8.5 + 7 * (i/2 - floor(i/2))) * 2^floor(i/2) - 7
alignas(32) inline constexpr float kErfInvMiddles[8] = {
    0x1.8p0f, 0x1.4p2f, 0x1.4p3f, 0x1.1p4f, 0x1.bp4f, 0x1.48p5f, 0x1.e8p5f, 0x1.64p6f
};

}  // namespace orvik::zym
