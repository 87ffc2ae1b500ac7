// Written by tools/approx from the rule in zym/kernels/power/tables.h; do not edit.
#include "zym/kernels/power/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const double kElementThird64[32][3] = {
    {0x1.71p0, 0.0, 0.0}, {0x1.70e9p0, 0x1.705fb6d9974f7p-12, 0x1.858e3e5cbd6e9p-67},
    {0x1.70d2p0, 0x1.706b32edac47bp-11, -0x1.75b8e8dbf6c9cp-65},
    {0x1.70bacp0, 0x1.15596e9a69a8cp-10, -0x1.7b72378bf5eb4p-64},
    {0x1.70a3cp0, 0x1.7182a894b69c6p-10, -0x1.a821b7cc57a7ap-64},
    {0x1.708ccp0, 0x1.cdb1a2c18f404p-10, 0x1.b6d6b15b9dc78p-64},
    {0x1.7075cp0, 0x1.14f32eec5cad5p-9, -0x1.918e567cfb9b7p-64},
    {0x1.705ecp0, 0x1.43106d490e8e4p-9, 0x1.cc7c83c23cc79p-63},
    {0x1.7047cp0, 0x1.71308cd2e2959p-9, -0x1.60f27b5c942ap-67},
    {0x1.7031p0, 0x1.9ed32887759f9p-9, 0x1.af5b1610889cep-63},
    {0x1.701ap0, 0x1.ccf9037a1d684p-9, -0x1.7589a7c124dcbp-64},
    {0x1.7003p0, 0x1.fb21c0ad5e1e4p-9, 0x1.4d5875c26e906p-63},
    {0x1.6fecp0, 0x1.14a6b03ec0fb5p-8, -0x1.566e5175fa057p-63},
    {0x1.6fd54p0, 0x1.2b7daef0d629fp-8, 0x1.c9fdeeb0edb9ep-62},
    {0x1.6fbe4p0, 0x1.42965dfb79d12p-8, -0x1.6bb1578c56437p-62},
    {0x1.6fa74p0, 0x1.59b07edeb1942p-8, -0x1.8da989ff9a2f3p-63},
    {0x1.72728p0, -0x1.721b1f1d7872ep-8, 0x1.35533dfa9d503p-65},
    {0x1.725b4p0, -0x1.5aec58a7f7651p-8, -0x1.a632d5549b2a6p-63},
    {0x1.7244p0, -0x1.43bc1d94f7b29p-8, 0x1.73ce599f2127fp-62},
    {0x1.722ccp0, -0x1.2c8a6db5ac591p-8, -0x1.cf784c0534b47p-64},
    {0x1.72158p0, -0x1.155748db3f84bp-8, 0x1.7d62f7c92f835p-63},
    {0x1.71fe4p0, -0x1.fc455dada51acp-9, 0x1.d10dcb854ce7ap-63},
    {0x1.71e74p0, -0x1.ce590c32cc211p-9, -0x1.8597db83af74ep-63},
    {0x1.71dp0, -0x1.9fea0a7160213p-9, -0x1.2107b54c40a0dp-64},
    {0x1.71b8cp0, -0x1.71781d4354825p-9, 0x1.39f61bf4cf6a7p-63},
    {0x1.71a1cp0, -0x1.438329922037dp-9, 0x1.d28addb449124p-65},
    {0x1.718a8p0, -0x1.150b6c7caadd6p-9, 0x1.7b12a2775837ep-63},
    {0x1.71738p0, -0x1.ce2170572384dp-10, 0x1.3201cc3838004p-64},
    {0x1.715c4p0, -0x1.712653743f454p-10, -0x1.fa9f94392637bp-66},
    {0x1.71454p0, -0x1.152566b09614fp-10, -0x1.68673f679240ap-65},
    {0x1.712e4p0, -0x1.723d7d8203b42p-11, -0x1.753c7a6c984b8p-65},
    {0x1.7117p0, -0x1.7048c18e5d9ebp-12, 0x1.ee10061dbbc8fp-70}
};

}  // namespace orvik::zym
