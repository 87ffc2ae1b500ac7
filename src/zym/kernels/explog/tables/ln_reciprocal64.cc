// Written by tools/approx from the rule in zym/kernels/explog/tables.h; do not edit.
#include "zym/kernels/explog/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const double kLnReciprocal64[65][3] = {
    {0x1p0, 0.0, 0.0}, {0x1.f8p-1, 0x1.0205658ap-6, -0x1.94f716c1b8bdfp-39},
    {0x1.f08p-1, 0x1.f7a9b168p-6, -0x1.f5ea936c720c1p-40}, {0x1.e9p-1, 0x1.788595a3p-5, 0x1.5dee9e5ef898bp-39},
    {0x1.e2p-1, 0x1.eea31cp-5, 0x1.ae1eec1b036c5p-39}, {0x1.dbp-1, 0x1.333d7f818p-4, 0x1.fa5b5255f91dfp-43},
    {0x1.d4p-1, 0x1.700d30ae8p-4, 0x1.60707a36a677bp-39}, {0x1.cd8p-1, 0x1.a956d3ec8p-4, 0x1.6f31bca601625p-39},
    {0x1.c7p-1, 0x1.e3707ee3p-4, 0x1.21ed09ccecd58p-42}, {0x1.c1p-1, 0x1.0ce7ecdccp-3, 0x1.85194b6affd51p-40},
    {0x1.bbp-1, 0x1.28753bc1p-3, 0x1.aba4a71ac9817p-39}, {0x1.b5p-1, 0x1.4462b9dc8p-3, 0x1.b3dbd3ac7727dp-39},
    {0x1.afp-1, 0x1.60b3100bp-3, 0x1.28eba9367707fp-40}, {0x1.a98p-1, 0x1.7b009165p-3, 0x1.528c501a7cc0dp-39},
    {0x1.a4p-1, 0x1.95a5adcf8p-3, -0x1.fd01baf4ebe01p-40}, {0x1.9fp-1, 0x1.ae2ca6f68p-3, -0x1.a8572a51ab0abp-40},
    {0x1.998p-1, 0x1.c97f8079cp-3, 0x1.44ec586a31b9bp-39}, {0x1.948p-1, 0x1.e2a877a6cp-3, -0x1.a7dc7e8878f7ep-40},
    {0x1.8f8p-1, 0x1.fc218be64p-3, -0x1.f5a22dc87184bp-39}, {0x1.8bp-1, 0x1.09aa572e6p-2, 0x1.8da850f0b9a1ap-39},
    {0x1.86p-1, 0x1.16b5ccbacp-2, 0x1.f6e6b37de945ap-39}, {0x1.818p-1, 0x1.22981fbfp-2, -0x1.0d0a10b04ac07p-39},
    {0x1.7dp-1, 0x1.2e9e2bce2p-2, -0x1.baf3fcfb5cb89p-39}, {0x1.788p-1, 0x1.3ac8ca38ep-2, 0x1.717a0821fea0ep-40},
    {0x1.748p-1, 0x1.45b8c0a18p-2, -0x1.07644839f42a1p-41}, {0x1.7p-1, 0x1.522ae0738p-2, 0x1.47af9c205931dp-39},
    {0x1.6cp-1, 0x1.5d5bddf5ap-2, -0x1.41a0b2a08a466p-39}, {0x1.68p-1, 0x1.68ac83e9cp-2, 0x1.a8506993ab75dp-40},
    {0x1.64p-1, 0x1.741d876c6p-2, 0x1.eec584a4ee306p-40}, {0x1.608p-1, 0x1.7e3b8a49ap-2, 0x1.800aaee8bfa5ap-39},
    {0x1.5c8p-1, 0x1.89eb3af44p-2, -0x1.af174fcf86eecp-39}, {0x1.59p-1, 0x1.9441434ap-2, 0x1.92cb81c95fff4p-41},
    {0x1.558p-1, 0x1.9eb246cb4p-2, 0x1.dd425ce9e7277p-39}, {0x1.52p-1, 0x1.a93ed3c8ap-2, 0x1.b3c6de57d4ef5p-39},
    {0x1.4e8p-1, 0x1.b3e77d046p-2, 0x1.ae4ed408e5134p-39}, {0x1.4bp-1, 0x1.beacd9e28p-2, -0x1.ca5d64491e193p-39},
    {0x1.478p-1, 0x1.c98f869aap-2, -0x1.a220ad9793badp-41}, {0x1.448p-1, 0x1.d2fbe932p-2, 0x1.a6382a878f0d6p-41},
    {0x1.418p-1, 0x1.dc7eb3d1ap-2, -0x1.cc29f211c8d1p-39}, {0x1.3ep-1, 0x1.e7b42c3dep-2, -0x1.4a32a829b95e8p-40},
    {0x1.3bp-1, 0x1.f168f7fbp-2, 0x1.714825fac1f9dp-40}, {0x1.38p-1, 0x1.fb358af7ap-2, 0x1.2210bf4782c92p-40},
    {0x1.35p-1, 0x1.028d2d6a9p-1, 0x1.8fd1ff6181e84p-39}, {0x1.32p-1, 0x1.078bf0534p-1, -0x1.d4bf6edf0905p-40},
    {0x1.2f8p-1, 0x1.0bbf2fd24p-1, -0x1.15f8bfa94a194p-40}, {0x1.2c8p-1, 0x1.10d53cbc1p-1, -0x1.fc2074695612ap-39},
    {0x1.2ap-1, 0x1.151c3f6f3p-1, -0x1.a7b765e8a4eb9p-39}, {0x1.27p-1, 0x1.1a4a738b8p-1, -0x1.730ea76cfdec3p-39},
    {0x1.248p-1, 0x1.1ea5f6e71p-1, -0x1.47d17028ff35dp-41}, {0x1.22p-1, 0x1.230b0d8bfp-1, -0x1.0da07f3236f33p-39},
    {0x1.1f8p-1, 0x1.2779e1ec9p-1, 0x1.f6523373359b8p-40}, {0x1.1dp-1, 0x1.2bf29f984p-1, 0x1.c3b1470c3a77p-41},
    {0x1.1a8p-1, 0x1.30757344fp-1, 0x1.c26fa1598bc0dp-42}, {0x1.18p-1, 0x1.35028ad9ep-1, -0x1.cde8f80d5b033p-39},
    {0x1.158p-1, 0x1.399a157a6p-1, 0x1.f399c62286d89p-44}, {0x1.138p-1, 0x1.3d4e2ae7bp-1, 0x1.f8ad647fbf21cp-39},
    {0x1.11p-1, 0x1.41f8ff847p-1, 0x1.d610f75d329a4p-41}, {0x1.0fp-1, 0x1.45bcc464dp-1, -0x1.db17ae93ff72dp-39},
    {0x1.0c8p-1, 0x1.4a7b87bf2p-1, -0x1.5f6e2d8a4cd62p-43}, {0x1.0a8p-1, 0x1.4e4f832c5p-1, 0x1.8375b7bb95e54p-39},
    {0x1.088p-1, 0x1.522ae0739p-1, -0x1.70a0c7bf4d9c5p-39}, {0x1.06p-1, 0x1.5707a26bcp-1, -0x1.ce667f400ccfcp-39},
    {0x1.04p-1, 0x1.5af405c36p-1, 0x1.277e98eb04328p-39}, {0x1.02p-1, 0x1.5ee82aa24p-1, 0x1.9202380cda46cp-41},
    {0x1p-1, 0x1.62e42fefa38p-1, 0x1.ef35793c7673p-45}
};

}  // namespace orvik::zym
