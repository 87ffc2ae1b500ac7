// Constants of the complex element loops in three doubles. Numbers by tools/approx from the lines marked //:.
#pragma once

namespace orvik::zym::complex_loops {

inline constexpr double kPiFirst = 0x1.921fb54442d18p1;       //: = pi
inline constexpr double kPiSecond = 0x1.1a62633145c07p-53;    //: = pi - kPiFirst
inline constexpr double kPiThird = -0x1.f1976b7ed8fbcp-109;   //: = pi - kPiFirst - kPiSecond
inline constexpr double kLn2First = 0x1.62e42fefa39efp-1;     //: = log(2)
inline constexpr double kLn2Second = 0x1.abc9e3b39803fp-56;   //: = log(2) - kLn2First
inline constexpr double kLn2Third = 0x1.7b57a079a1934p-111;  //: = log(2) - kLn2First - kLn2Second

}  // namespace orvik::zym::complex_loops
