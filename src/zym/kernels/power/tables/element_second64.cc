// Written by tools/approx from the rule in zym/kernels/power/tables.h; do not edit.
#include "zym/kernels/power/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const double kElementSecond64[32][3] = {
    {0x1p0, 0.0, 0.0}, {0x1.fep-1, 0x1.720d9c06a835fp-8, -0x1.64439c1a2068ap-62},
    {0x1.fc08p-1, 0x1.6fdf461d2e4f8p-7, -0x1.dc930484501f8p-63},
    {0x1.fa1p-1, 0x1.13b6bec350f93p-6, -0x1.2ec0f35494fc9p-61},
    {0x1.f82p-1, 0x1.6e625317aa9f8p-6, 0x1.cc8ac29b6fa31p-60},
    {0x1.f63p-1, 0x1.c96748ed0f7c4p-6, 0x1.acda216072c25p-60},
    {0x1.f448p-1, 0x1.11a6297927649p-5, 0x1.cd7d436d63ae2p-59},
    {0x1.f26p-1, 0x1.3ec49bfc277abp-5, 0x1.970700433ed55p-62},
    {0x1.f08p-1, 0x1.6b50e297afccep-5, 0x1.691acf1f63ee9p-63},
    {0x1.eeap-1, 0x1.98084f5d9ae77p-5, 0x1.71c17c15a0f7ap-59},
    {0x1.eccp-1, 0x1.c4eb3635cea06p-5, 0x1.2bdcad6099285p-59},
    {0x1.eae8p-1, 0x1.f13950dd61d4bp-5, -0x1.5444cfc3c2d29p-59},
    {0x1.e91p-1, 0x1.0ed90caca899bp-4, -0x1.f95f95840caf6p-58},
    {0x1.e74p-1, 0x1.24c9ea8884545p-4, 0x1.e314981351a5fp-58},
    {0x1.e57p-1, 0x1.3acfb73826c8fp-4, 0x1.b9b526fb6276fp-59},
    {0x1.e3a8p-1, 0x1.5088dbb155c07p-4, -0x1.fe5504daa423ap-58},
    {0x1.111p0, -0x1.7d49341a0bddep-4, 0x1.d0c2156ab1849p-61},
    {0x1.0ffp0, -0x1.64e3caa9311abp-4, 0x1.6fe70e09aab31p-59},
    {0x1.0edp0, -0x1.4c647d2ea80dap-4, -0x1.e208ae27dbde1p-60},
    {0x1.0db4p0, -0x1.3422b94a26437p-4, 0x1.b62cc0e73e081p-58},
    {0x1.0c98p0, -0x1.1bc75cf5a7afbp-4, -0x1.909cf41cbae34p-58},
    {0x1.0b8p0, -0x1.03aa8f8dc854cp-4, -0x1.21e9af54286adp-58},
    {0x1.0a68p0, -0x1.d6e8ef48fb052p-5, -0x1.e28bb2ede5f4dp-59},
    {0x1.0954p0, -0x1.a6fbed7681b1cp-5, -0x1.9b6df35c92a07p-59},
    {0x1.0844p0, -0x1.778fdc182a86fp-5, -0x1.5e55ea665cc7p-61},
    {0x1.0734p0, -0x1.47f2e22551a42p-5, -0x1.1a4f15b737547p-59},
    {0x1.0624p0, -0x1.18249a536d06cp-5, -0x1.abfbea6976bb7p-60},
    {0x1.0518p0, -0x1.d1b35ee2098fep-6, 0x1.1a4961b656407p-60},
    {0x1.041p0, -0x1.7427d317ab808p-6, 0x1.d69f89ed82843p-60},
    {0x1.0308p0, -0x1.163d20d10b746p-6, 0x1.a66c0730268b2p-61},
    {0x1.0204p0, -0x1.72c1f4cf06d25p-7, 0x1.74fe03519133dp-62},
    {0x1.01p0, -0x1.709c46d7aac77p-8, -0x1.2b66f4924be11p-62}
};

}  // namespace orvik::zym
