// Written by tools/approx from the rule in zym/kernels/explog/tables.h; do not edit.
#include "zym/kernels/explog/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const double kExp10Rows64[64][2] = {
    {0x1p0, 0.0}, {0x1.02c9a4p0, -0x1.513f5c0a1efaep-29}, {0x1.059b0d4p0, -0x1.8e9a5a9df3063p-30},
    {0x1.0874518p0, 0x1.8b8d038e67d51p-31}, {0x1.0b5586cp0, 0x1.9f1be2f1cca28p-30},
    {0x1.0e3ec34p0, -0x1.edfafae5808abp-30}, {0x1.11301dp0, 0x1.de1ed599d6611p-34},
    {0x1.1429abp0, -0x1.1407af8ffbe26p-29}, {0x1.172b84p0, -0x1.65e659e1a66bp-28},
    {0x1.1a35bf0a849p0, -0x1.074303f35af44p-27}, {0x1.1d48735fec95p0, -0x1.c98cf089232c9p-28},
    {0x1.2063b8b82a86p0, -0x1.3474b96fd9706p-28}, {0x1.2387a710fbbbp0, -0x1.fc3ec24a6684cp-29},
    {0x1.26b456ade86dp0, -0x1.e165189b068dbp-28}, {0x1.29e9df8cadf4p0, -0x1.5e6dde8b3f118p-28},
    {0x1.2d285ac2352cp0, -0x1.efea31a9a45c3p-28}, {0x1.306fe08p0, 0x1.9a45e4bf9441ap-29},
    {0x1.33c08b1ff052p0, 0x1.241a22d5d51bp-31}, {0x1.371a736137deap0, 0x1.a5f16ee1357d1p-30},
    {0x1.3a7db32157f8cp0, 0x1.fd2925a32e36ep-29}, {0x1.3dea6489edeb6p0, 0x1.34e9eb1c3d497p-28},
    {0x1.4160a210b2f9ap0, 0x1.4690ce99a7f89p-30}, {0x1.44e085df446e8p0, 0x1.a936db6c62f4bp-29},
    {0x1.486a2b4faf758p0, 0x1.0c7c6a5f30be8p-30}, {0x1.4bfdad8p0, -0x1.de1bac7cdb41p-29},
    {0x1.4f9b27b6bca6p0, -0x1.97ad84437d1dfp-28}, {0x1.5342b5aa6dbaep0, -0x1.52b46ce5ea621p-28},
    {0x1.56f4738fe0bc4p0, -0x1.7b386b99414bcp-29}, {0x1.5ab07deee2932p0, -0x1.0e8dbb03f4efcp-29},
    {0x1.5e76f1a23f93ep0, -0x1.6a8c94f7cdc33p-28}, {0x1.6247eb31c4a78p0, -0x1.cf2ab5d00c8dfp-29},
    {0x1.662388713c648p0, -0x1.7911ae066b91bp-28}, {0x1.6a09e68p0, -0x1.d8a2b86c13813p-30},
    {0x1.6dfb2401522ap0, -0x1.1ec85c20145dcp-28}, {0x1.71f75ebc12ae2p0, -0x1.b39e89850343bp-29},
    {0x1.75feb57298e1cp0, -0x1.12dc36a4df96ap-30}, {0x1.7a114741be93ep0, -0x1.cc36abd236f58p-33},
    {0x1.7e2f33a0e00d2p0, -0x1.e34ed9a8ca05fp-29}, {0x1.825899acd71c8p0, -0x1.bac0cb12761b2p-30},
    {0x1.868d99ec87778p0, -0x1.002c85e302d18p-28}, {0x1.8ace54p0, 0x1.385f5426c0f4p-29},
    {0x1.8f1ae99421dp0, -0x1.8e007e35e06ep-33}, {0x1.93737b0009d9p0, 0x1.c4489b5f1dc3ap-31},
    {0x1.97d829cebfbep0, 0x1.9b42950a5ae94p-29}, {0x1.9c4917edfeb7p0, 0x1.03f6a2cfd3a2ap-28},
    {0x1.a0c667ae3591p0, 0x1.05875ad002baap-31}, {0x1.a5503afd1f84p0, 0x1.47504ad38fa71p-29},
    {0x1.a9e6b553461cp0, 0x1.22bd24b6288dp-32}, {0x1.ae89f98p0, 0x1.663fa614bcacfp-30},
    {0x1.b33a2b984956p0, -0x1.3c3f11ff8148dp-30}, {0x1.b7f76f3234a9ep0, -0x1.42d5a449b2cap-33},
    {0x1.bcc1e8e1faee4p0, 0x1.160313edf84bcp-29}, {0x1.c199bda777942p0, 0x1.82adc48344a7cp-29},
    {0x1.c67f12ee288aep0, -0x1.0f76a9a187bb8p-31}, {0x1.cb720db5e9438p0, 0x1.8421936e5a13p-30},
    {0x1.d072d4ad1f288p0, -0x1.839f7216762fap-31}, {0x1.d5818ep0, -0x1.6dca217f5c61bp-29},
    {0x1.da9e609b7cf8p0, -0x1.5f84bec4bdae4p-28}, {0x1.dfc97383ee998p0, -0x1.1a8ba7672af26p-28},
    {0x1.e502ee9d16b5p0, -0x1.0ae6e09bc26c7p-29}, {0x1.ea4afa40177e8p0, -0x1.3c78600cec20ep-30},
    {0x1.efa1bf3b738d8p0, -0x1.3263cf790e538p-28}, {0x1.f50765e84d16p0, -0x1.5ed92ad28daeap-29},
    {0x1.fa7c187547dap0, -0x1.40e8e887ac22p-28}
};

}  // namespace orvik::zym
