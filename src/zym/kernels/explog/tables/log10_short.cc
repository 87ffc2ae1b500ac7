// Written by tools/approx from the rule in zym/kernels/explog/tables.h; do not edit.
#include "zym/kernels/explog/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const double kLog10Short[97] = {
    0x1.ffbfc2bbc7803p-4, 0x1.ed50a4a26eafcp-4, 0x1.db11ed766abf4p-4, 0x1.c902a19e65111p-4, 0x1.b721cd17157e3p-4,
    0x1.a56e8325f5c87p-4, 0x1.93e7de0fc3e8p-4, 0x1.828cfed29a215p-4, 0x1.715d0ce367afcp-4, 0x1.605735ee985f1p-4,
    0x1.4f7aad9bbcbafp-4, 0x1.3ec6ad5407868p-4, 0x1.2e3a740b7800fp-4, 0x1.1dd5460c8b16fp-4, 0x1.0d966cc6500fap-4,
    0x1.fafa6d397efdbp-5, 0x1.db11ed766abf4p-5, 0x1.bb7209d1e24e5p-5, 0x1.9c197abf00dd7p-5, 0x1.7d070145f4fd7p-5,
    0x1.5e3966b7e9295p-5, 0x1.3faf7c663060ep-5, 0x1.21681b5c8c213p-5, 0x1.0362241e638ecp-5, 0x1.cb38fccd8bfdbp-6,
    0x1.902c31d62a843p-6, 0x1.559bd2406c3bap-6, 0x1.1b85d6044e9aep-6, 0x1.c3d0837784c41p-7, 0x1.51824c7587ebp-7,
    0x1.c03a80ae5e054p-8, 0x1.be76bd77b4fc3p-9, 0.0, -0x1.bafd47221ed26p-9, -0x1.b9476a4fcd10fp-8,
    -0x1.49b0851443684p-7, -0x1.b5e908eb1379p-7, -0x1.10a83a8446c78p-6, -0x1.45f4f5acb8bep-6, -0x1.7adc3df3b1ff8p-6,
    -0x1.af5f92b00e61p-6, -0x1.e3806acbd058fp-6, -0x1.0ba01a817p-5, -0x1.25502c0fc314cp-5, -0x1.3ed1199a5e425p-5,
    -0x1.58238eeb353dap-5, -0x1.71483427d2a99p-5, -0x1.8a3fadeb847f4p-5, -0x1.a30a9d609efeap-5, -0x1.bba9a058dfd84p-5,
    -0x1.d41d5164facb4p-5, -0x1.ec6647eb58808p-5, -0x1.02428c1f08016p-4, -0x1.0e3d29d81165ep-4, -0x1.1a23445501816p-4,
    -0x1.25f5215eb594ap-4, -0x1.31b3055c47118p-4, -0x1.3d5d335c53179p-4, -0x1.48f3ed1df48fbp-4, -0x1.5477731973e85p-4,
    -0x1.5fe80488af4fdp-4, -0x1.6b45df6f3e2c9p-4, -0x1.769140a2526fdp-4, -0x1.81ca63d05a44ap-4, -0x1.8cf183886480dp-4,
    -0x1.9806d9414a209p-4, -0x1.a30a9d609efeap-4, -0x1.adfd07416be07p-4, -0x1.b8de4d3ab3d98p-4, -0x1.c3aea4a5c6effp-4,
    -0x1.ce6e41e463da5p-4, -0x1.d91d5866aa99cp-4, -0x1.e3bc1ab0e19fep-4, -0x1.ee4aba610f204p-4, -0x1.f8c9683468191p-4,
    -0x1.019c2a064b486p-3, -0x1.06cbd67a6c3b6p-3, -0x1.0bf3d0937c41cp-3, -0x1.11142f0811357p-3, -0x1.162d082ac9d1p-3,
    -0x1.1b3e71ec94f7bp-3, -0x1.204881dee8777p-3, -0x1.254b4d35e7d3cp-3, -0x1.2a46e8ca7ba2ap-3, -0x1.2f3b691c5a001p-3,
    -0x1.3428e2540096dp-3, -0x1.390f6844a0b83p-3, -0x1.3def0e6dfdf85p-3, -0x1.42c7e7fe3fc02p-3, -0x1.479a07d3b6411p-3,
    -0x1.4c65807e93338p-3, -0x1.512a644296c3dp-3, -0x1.55e8c518b10f8p-3, -0x1.5aa0b4b0988fap-3, -0x1.5f52447255c92p-3,
    -0x1.63fd857fc49bbp-3, -0x1.68a288b60b7fcp-3
};

}  // namespace orvik::zym
