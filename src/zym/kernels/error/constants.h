// Constants of the error functions. Numbers by tools/approx from the lines marked //:.
#pragma once

namespace orvik::zym {

// The octets of kErfcxSingle are keyed by v = 1 + kErfcxScale z. It is chosen so that it and its quotient by sqrt(2), for
// the normal distribution, are floats to 41 bits, and that v is below 16 where erfc becomes 0.
inline constexpr float kErfcxScale = 0x1.7c8eccp0f;  //: = 0x1.7c8eccp0
inline constexpr float kErfcxScaleNormal = 0x1.0d1852p0f;  //: = kErfcxScale / sqrt(2)

// The centres of the half octaves less 1, in the order of the low bits of their exponent and fraction: the first octave
// has an odd exponent field.
//: = 2^floor(mod(i + 2, 8)/2) * (1 + (mod(i, 2) + 1/2)/2) - 1
alignas(32) inline constexpr float kErfcxCentres[8] = {
    0x1.8p0f, 0x1.4p1f, 0x1p2f, 0x1.8p2f, 0x1.2p3f, 0x1.ap3f, 0x1p-2f, 0x1.8p-1f
};

// erf(c) / c at the centres c of kErfSingleHA, times 2^40.
//: = 2^40 * (i == 0 ? 2/sqrt(pi) : erf(max(i, 1)*17/32) / (max(i, 1)*17/32))
alignas(32) inline constexpr float kErfHeads[8] = {
    0x1.20dd76p40f, 0x1.07d824p40f, 0x1.a1d1fp39f, 0x1.397ad4p39f, 0x1.e09a7ap38f, 0x1.81708p38f, 0x1.4140b8p38f,
    0x1.135c7ep38f
};

inline constexpr double kInverseRoot2 = 0x1.6a09e667f3bcdp-1;      //: = 1/sqrt(2)
inline constexpr double kInverseRoot2Tail = -0x1.bdd3413b26456p-55;  //: = 1/sqrt(2) - kInverseRoot2
inline constexpr double kInverseRootPi = 0x1.20dd750429b6dp-1;      //: = 1/sqrt(pi)
inline constexpr double kInverseRootPiTail = 0x1.1ae3a914fed8p-57;  //: = 1/sqrt(pi) - kInverseRootPi

}  // namespace orvik::zym
