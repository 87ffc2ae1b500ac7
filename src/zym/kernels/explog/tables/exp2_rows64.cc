// Written by tools/approx from the rule in zym/kernels/explog/tables.h; do not edit.
#include "zym/kernels/explog/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const double kExp2Rows64[64][2] = {
    {0x1p0, 0.0}, {0x1.02c9a4p0, -0x1.1813f6cf4ea72p-27}, {0x1.059b0d4p0, -0x1.4b085733b1546p-28},
    {0x1.0874518p0, 0x1.487f73a54a8c3p-29}, {0x1.0b5586cp0, 0x1.58bd91c6bf0e8p-28},
    {0x1.0e3ec34p0, -0x1.9a3de8e0e66c7p-28}, {0x1.11301dp0, 0x1.8d12081bea4e3p-32},
    {0x1.1429abp0, -0x1.ca79d7705dd19p-28}, {0x1.172b84p0, -0x1.293ab72ee2ecdp-26},
    {0x1.1a35bf0a849p0, -0x1.b544b2968a406p-26}, {0x1.1d48735fec95p0, -0x1.7bfcccfbcf41ep-26},
    {0x1.2063b8b82a86p0, -0x1.002ac8ba399b5p-26}, {0x1.2387a710fbbbp0, -0x1.a616a57a66526p-27},
    {0x1.26b456ade86dp0, -0x1.8fca31671c87fp-26}, {0x1.29e9df8cadf4p0, -0x1.23066f0e73439p-26},
    {0x1.2d285ac2352cp0, -0x1.9bd92d0afa613p-26}, {0x1.306fe08p0, 0x1.54b97044806f7p-27},
    {0x1.33c08b1ff052p0, 0x1.e52bcba98e428p-30}, {0x1.371a736137deap0, 0x1.5e6a89554f8a8p-28},
    {0x1.3a7db32157f8cp0, 0x1.a6d94d2dd3128p-27}, {0x1.3dea6489edeb6p0, 0x1.008c1c93effb6p-26},
    {0x1.4160a210b2f9ap0, 0x1.0f34f7a81a727p-28}, {0x1.44e085df446e8p0, 0x1.612200855fc1ep-27},
    {0x1.486a2b4faf758p0, 0x1.bdf21231461aap-29}, {0x1.4bfdad8p0, -0x1.8d0f6827b2b36p-27},
    {0x1.4f9b27b6bca6p0, -0x1.5291af7b80ad4p-26}, {0x1.5342b5aa6dbaep0, -0x1.1949c9e0c5aecp-26},
    {0x1.56f4738fe0bc4p0, -0x1.3aef8b3e60105p-27}, {0x1.5ab07deee2932p0, -0x1.c1613e88a6584p-28},
    {0x1.5e76f1a23f93ep0, -0x1.2d172e4c12f4dp-26}, {0x1.6247eb31c4a78p0, -0x1.80a6d7e6d360fp-27},
    {0x1.662388713c648p0, -0x1.392629eff0ce1p-26}, {0x1.6a09e68p0, -0x1.8883f0b4a9f69p-28},
    {0x1.6dfb2401522ap0, -0x1.dc55ef29a3a26p-27}, {0x1.71f75ebc12ae2p0, -0x1.69c623f42da58p-27},
    {0x1.75feb57298e1cp0, -0x1.c8886dc40960fp-29}, {0x1.7a114741be93ep0, -0x1.7e32f76f57408p-31},
    {0x1.7e2f33a0e00d2p0, -0x1.9160eccac8318p-27}, {0x1.825899acd71c8p0, -0x1.6fb2d032eb51bp-28},
    {0x1.868d99ec87778p0, -0x1.a97ee41283e41p-27}, {0x1.8ace54p0, 0x1.036b6dd1e4bfep-27},
    {0x1.8f1ae99421dp0, -0x1.4a888fd69e74p-31}, {0x1.93737b0009d9p0, 0x1.779d08e03056cp-29},
    {0x1.97d829cebfbep0, 0x1.558b4abb3762fp-27}, {0x1.9c4917edfeb7p0, 0x1.afca36b544472p-27},
    {0x1.a0c667ae3591p0, 0x1.b263cb0b8c4d4p-30}, {0x1.a5503afd1f84p0, 0x1.0fd3fe12c4125p-27},
    {0x1.a9e6b553461cp0, 0x1.e2e8219b5d718p-31}, {0x1.ae89f98p0, 0x1.2984e02afe3fap-28},
    {0x1.b33a2b984956p0, -0x1.06a30d739f0eap-28}, {0x1.b7f76f3234a9ep0, -0x1.0c1bb84598a6p-31},
    {0x1.bcc1e8e1faee4p0, 0x1.cdc499fda385cp-28}, {0x1.c199bda777942p0, 0x1.412138f8dea71p-27},
    {0x1.c67f12ee288aep0, -0x1.c2e422d7a0b34p-30}, {0x1.cb720db5e9438p0, 0x1.425600acbce48p-28},
    {0x1.d072d4ad1f288p0, -0x1.41e9ee8abf23ep-29}, {0x1.d5818ep0, -0x1.2fc81b38ae1c3p-27},
    {0x1.da9e609b7cf8p0, -0x1.23ee0903fe61ap-26}, {0x1.dfc97383ee998p0, -0x1.d54c46d286c66p-27},
    {0x1.e502ee9d16b5p0, -0x1.bb507c9eb6f24p-28}, {0x1.ea4afa40177e8p0, -0x1.06d2a4aa9d29ep-28},
    {0x1.efa1bf3b738d8p0, -0x1.fce70fa921526p-27}, {0x1.f50765e84d16p0, -0x1.235f8af7cec9cp-27},
    {0x1.fa7c187547dap0, -0x1.0a8283786e828p-26}
};

}  // namespace orvik::zym
