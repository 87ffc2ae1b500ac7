// Written by tools/approx from the rule in zym/kernels/bessel/tables.h; do not edit.
#include "zym/kernels/bessel/tables.h"

// clang-format off
namespace orvik::zym::bessel {

alignas(64) const double kJ1Rows64[128][16] = {
    {
        -0x1.82497172c19e9p-28, -0x1.7726630b7433p-36, 0x1.6c17b8eeb6485p-21, -0x1.761fba1f296f2p-40,
        -0x1.c71c71b1c24a7p-15, -0x1.76d68933b4579p-47, 0x1.55555555558fep-9, -0x1.27abdc32c08eap-57, -0x1p-4,
        -0x1.713936ebbba37p-74, 0x1p-1, 0.0, 0.0, 0.0, 0.0, 0.0
    },
    {
        -0x1.57d678c1ae883p-28, -0x1.0081b0996da2cp-25, 0x1.432bc74ea0687p-21, 0x1.8a22c9d033904p-19,
        -0x1.94e1a06f3f4afp-15, -0x1.7f7584c6268f3p-13, 0x1.30b1d6369f2a4p-9, 0x1.9b4900338a909p-8,
        -0x1.cba1b24e5afe9p-5, -0x1.72cfccf66e3c6p-4, 0x1.d0d3c8b500d92p-2, 0x1.f02a71f4870d7p-3, 0x1.246c376349f78p-56,
        -0x1.df59bdcbb59c3p-57, 0x1p-1, 0.0
    },
    {
        -0x1.bafe60cb12413p-29, -0x1.c6a4b08321e6cp-25, 0x1.a3762c994a0e3p-22, 0x1.5ddd078edef15p-18,
        -0x1.097ab657dda96p-15, -0x1.552abb3287339p-12, 0x1.95ba0ebce6cc2p-10, 0x1.6f2f2225b3aap-7,
        -0x1.39c35b951bd44p-5, -0x1.4cf35c9186573p-3, 0x1.4cf35c9186573p-2, 0x1.c29c9ee970c6cp-2,
        -0x1.3099f4adf0366p-56, 0x1.4d8b9e34019p-56, 0x1p0, 0.0
    },
    {
        -0x1.889069426c9b1p-31, -0x1.12b94efdc857ep-24, 0x1.8c8a55960edf4p-24, 0x1.a82fc59b927fcp-18,
        -0x1.10cb17ac55235p-17, -0x1.9f84d3e37072p-12, 0x1.d237e2af21a39p-12, 0x1.c23f827e4c492p-7,
        -0x1.a680b1d2f1fa6p-7, -0x1.9ce3728bc4d24p-3, 0x1.1e74299684869p-3, 0x1.1da9da9d6fc81p-1,
        -0x1.b96d851ceafe8p-57, 0x1.551140ea92601p-57, 0x1.8p0, 0.0
    },
    {
        0x1.0bcd1782152b3p-29, -0x1.03d5cb10f00a1p-24, -0x1.e3d35264863e9p-23, 0x1.93ab83157cacap-18,
        0x1.1d8e5c5f4f92ep-16, -0x1.8ed4358c0dfd4p-12, -0x1.853bc1ba10664p-11, 0x1.b5b932ca54823p-7,
        0x1.e1bc6e745fb3p-7, -0x1.99ea4944ca5aep-3, -0x1.081365fc429dp-4, 0x1.27487958371fp-1, 0x1.2e8cbc801423fp-59,
        -0x1.2847d70a0d7d5p-56, 0x1p1, 0.0
    },
    {
        0x1.1d907a75ad6a3p-28, -0x1.7498f252d8abbp-25, -0x1.0740bf275c4aap-21, 0x1.25721f7875521p-18,
        0x1.4067acc27bb6dp-15, -0x1.277d8e2c7b235p-12, -0x1.cbdc9f9363cfep-10, 0x1.4d6f582e187f8p-7,
        0x1.3cb0a63cd0e86p-5, -0x1.46518dd78ab28p-3, -0x1.fa4f38f6aeb01p-3, 0x1.fd063c84795ffp-2,
        -0x1.efe60398c6061p-58, -0x1.1ebcb9859d223p-57, 0x1.4p1, 0.0
    },
    {
        0x1.736873275894ap-28, -0x1.1c9343701eb88p-26, -0x1.5955658f1a3fp-21, 0x1.db8f8de2c2579p-20,
        0x1.a96b8871b64eep-15, -0x1.024b2e46f6ac2p-13, -0x1.36fdcee24c80cp-9, 0x1.4245474b4c3cep-8,
        0x1.ba7379276c606p-5, -0x1.6a8df034b5d1bp-4, -0x1.7e067bc94e12cp-2, 0x1.5b324589238dp-2, -0x1.77b6402bdf28ep-56,
        -0x1.b1998c85ed689p-56, 0x1.8p1, 0.0
    },
    {
        0x1.742ee7a130b8p-28, 0x1.d96c76404ce29p-27, -0x1.5d1663e4f8abfp-21, -0x1.4102e81236f0fp-20,
        0x1.b32add018c9dp-15, 0x1.f601d8b50660ap-15, -0x1.4392fd950c7dp-9, -0x1.476dfe8634c5dp-10, 0x1.d8d4c2443c38ep-5,
        -0x1.9f89e9324329ep-9, -0x1.ad718c2d4e8a4p-2, 0x1.19596399cff47p-3, 0x1.af3ac965908f9p-57,
        -0x1.61b96bc006431p-57, 0x1.cp1, 0.0
    },
    {
        0x1.26ebfbe651d7bp-28, 0x1.19a50bb0b54bep-25, -0x1.3390245b78d6cp-21, -0x1.979951c214548p-19,
        0x1.83a06e097b366p-15, 0x1.6e4c2d4dcb0dbp-13, -0x1.24b3409953456p-9, -0x1.537544c331bd5p-8,
        0x1.b589d1da13901p-5, 0x1.ae8a39f51ad07p-5, -0x1.9c6cf582cbf7fp-2, 0.0, 0x1.bf0186d1fe382p-56,
        -0x1.1b9c1c3fb286fp-54, 0x1.ea75575af6f09p1, 0.0
    },
    {
        0x1.17021277b1f84p-29, 0x1.f3b0573ed1207p-25, -0x1.158f86ded616p-22, -0x1.79656456e013cp-18,
        0x1.749cf028fa847p-16, 0x1.64a55d59ae131p-12, -0x1.30f0b45d16fa6p-10, -0x1.69c35070c3f19p-7,
        0x1.fabe5e99bc579p-6, 0x1.1e2dba9df373p-3, -0x1.13a80cbaeecf8p-2, -0x1.d93636341586fp-3, -0x1.48f43ad898e45p-56,
        0x1.e0418b33e0be2p-58, 0x1.2p2, 0.0
    },
    {
        -0x1.3c5cd745e6066p-31, 0x1.0b4f2114bca9ap-24, 0x1.a3ae19c5612e1p-25, -0x1.99908d504cc6p-18,
        -0x1.ca1f71f2022cep-20, 0x1.8adb6a4b32075p-12, -0x1.19e9b7f44c87ep-14, -0x1.9ce959fa59b2ep-7,
        0x1.bf94d78f6eb24p-8, 0x1.58fa423477814p-3, -0x1.cb156341bdc2fp-4, -0x1.4f70e7cb3a99dp-2,
        -0x1.36d7e9d7b391dp-63, 0x1.33167815867fbp-57, 0x1.4p2, 0.0
    },
    {
        -0x1.9f385870d57b2p-29, 0x1.bfdd6294f3321p-25, 0x1.6dde47fd4893dp-22, -0x1.5d75aaaa7cb4p-18,
        -0x1.9f84da357fd58p-16, 0x1.592d7c122bc8ap-12, 0x1.09340095908d5p-10, -0x1.754082553a91p-7,
        -0x1.20944ba66c61ep-6, 0x1.47ca6cd150ac5p-3, 0x1.c47de19a97634p-5, -0x1.5da1fac37d47bp-2, 0x1.54ef61eacab3ep-59,
        -0x1.460a1627e8d33p-58, 0x1.6p2, 0.0
    },
    {
        -0x1.464edc37504c9p-28, 0x1.049baf4bb4d3p-25, 0x1.27e2ffc21b1bbp-21, -0x1.a8117a585b7efp-19,
        -0x1.5eca549d714dcp-15, 0x1.b8f59808523a5p-13, 0x1.e1400ce2f2327p-10, -0x1.fc58bb92b248ep-8,
        -0x1.2ff8250ad6eacp-5, 0x1.e3bf7112c6209p-4, 0x1.92f6814c2d227p-3, -0x1.1b530367f4bbfp-2, 0x1.aaec8224160edp-58,
        0x1.88dd5cca8886ep-56, 0x1.8p2, 0.0
    },
    {
        -0x1.70f8e5c582a23p-28, 0x1.0d4764900ef89p-29, 0x1.540bd7a2c1323p-21, -0x1.d96c2b188d4e1p-22,
        -0x1.9c3c179f2b5dap-15, 0x1.91d4ffab81b7cp-15, 0x1.2439d33f64034p-9, -0x1.5146c2c39c811p-9,
        -0x1.85f0ca1f70d43p-5, 0x1.b467d0a65f252p-5, 0x1.2292a2e4ca348p-2, -0x1.3b1125f2a3a6bp-3,
        -0x1.736bf2f49609ap-56, 0x1.8d59b29f8d25bp-57, 0x1.ap2, 0.0
    },
    {
        -0x1.4645d333da92fp-28, -0x1.d40a51e3a0489p-26, 0x1.302760a49011dp-21, 0x1.4255a29407a97p-19,
        -0x1.796a7534aed6p-15, -0x1.07358bbc9995bp-13, 0x1.13fbc7d699641p-9, 0x1.9a4b292e3dc0ap-9,
        -0x1.80c83bdeee5b1p-5, -0x1.5e70dc60362c3p-6, 0x1.33518b3874e8ap-2, 0.0, 0x1.64d8bfa2c3ccep-56,
        0x1.049770ce74c2ep-55, 0x1.c0ff5f3b4725p2, 0.0
    },
    {
        -0x1.a48609191b1ffp-29, -0x1.9f2f0767fb9f4p-25, 0x1.97afc084bd8c1p-22, 0x1.2e16fdc76b448p-18,
        -0x1.06ff258b4ad32p-15, -0x1.0dbf5fab9e912p-12, 0x1.93342a8fbe9dep-10, 0x1.f36a5ec90919cp-8,
        -0x1.29a1c87794d11p-5, -0x1.53de67dcd33e7p-4, 0x1.fc8822de4866fp-3, 0x1.14fd20aa5273ap-3, 0x1.00924bd8900c4p-57,
        -0x1.735fa309e5d4cp-58, 0x1.ep2, 0.0
    },
    {
        -0x1.7b066352b33aep-31, -0x1.f95dfe36d0ef8p-25, 0x1.c7502049c4ee6p-24, 0x1.78c1489924263p-18,
        -0x1.674fce43d0499p-17, -0x1.5c4b3ad852056p-12, 0x1.4d5e51fd5470ap-11, 0x1.544acdf08ff23p-7,
        -0x1.26146cbf644dfp-6, -0x1.fd760be176c7bp-4, 0x1.237954abb63f5p-3, 0x1.e089056186183p-3,
        -0x1.72a67c67bc8adp-58, -0x1.5b0e789e4b68bp-58, 0x1p3, 0.0
    },
    {
        0x1.ef55841ada56ep-30, -0x1.de66913458d88p-25, -0x1.9033df9e0b251p-23, 0x1.6c39a9e70331dp-18,
        0x1.8c713a5ec2254p-17, -0x1.5a088eceae55dp-12, -0x1.8b80096669014p-12, 0x1.5ed7a39d2e9ffp-7,
        0x1.d370f39e394a5p-9, -0x1.14fcc7505dd37p-3, 0x1.415d3a24603a2p-7, 0x1.17ad48b7328bap-2, 0x1.8e32d64e1510ep-63,
        0x1.65980c2856945p-56, 0x1.1p3, 0.0
    },
    {
        0x1.07d0ccef4972dp-28, -0x1.56582745fe8c9p-25, -0x1.cde661fc34999p-22, 0x1.0d20afff6635dp-18,
        0x1.048757a4542bdp-15, -0x1.099f18e1ac38fp-12, -0x1.4cad20182382ap-10, 0x1.19d5c87677da5p-7,
        0x1.7ce16c101043ep-6, -0x1.d5700e86514a1p-4, -0x1.e1a68d246ffc1p-4, 0x1.f66606a53f013p-3, 0x1.25ab44d2a29f4p-58,
        -0x1.1c96acd9ba87ap-57, 0x1.2p3, 0.0
    },
    {
        0x1.54bf253214671p-28, -0x1.0491134184372p-26, -0x1.32423122f6df6p-21, 0x1.cba94dc15c771p-20,
        0x1.664f9fbebe3f8p-15, -0x1.fdb5fbbd48f6ep-14, -0x1.e2c0ceeb1a429p-10, 0x1.2f6d9e8f90de1p-8,
        0x1.2cc9e842c91a3p-5, -0x1.1924c35d0bb1bp-4, -0x1.afee691e8ffe3p-3, 0x1.4a450180e4a75p-3,
        -0x1.9a9655b210e2fp-57, -0x1.18d115dc0a8b1p-57, 0x1.3p3, 0.0
    },
    {
        0x1.4f1bc2a9ce73bp-28, 0x1.773bd215852bep-26, -0x1.25ba06da1b92bp-21, -0x1.e371ccd69fca2p-20,
        0x1.63c547820e2d1p-15, 0x1.6b4c9c9c7519p-14, -0x1.f51c2489c0601p-10, -0x1.f91a9ee0d26b4p-10,
        0x1.4b0c5d5da678bp-5, 0x1.9223ff2c0783cp-7, -0x1.ff654544ebcd2p-3, 0.0, 0x1.e78a2bea2323p-57,
        0x1.0212f4e592523p-53, 0x1.458d0d0bdfc29p3, 0.0
    },
    {
        0x1.00faaa27ac811p-28, 0x1.3c266a2582deep-25, -0x1.e3f71f4a90276p-22, -0x1.b827ceb2572cbp-19,
        0x1.2b969ec12a26cp-15, 0x1.7270e82c4497ap-13, -0x1.b0d9af5306c25p-10, -0x1.3e74c03b20f03p-8,
        0x1.265d1bfbbeaebp-5, 0x1.996d16fd05cd9p-5, -0x1.d546a79710c05p-3, -0x1.42f83b8654106p-4,
        -0x1.b6afe2dc6fb93p-57, -0x1.7ad4b3c97136fp-58, 0x1.5p3, 0.0
    },
    {
        0x1.d8b69635ed41ep-30, 0x1.bf8fd22d2ab1cp-25, -0x1.e01124227e2f6p-23, -0x1.43d308bc3d18ep-18,
        0x1.417c205e79f83p-16, 0x1.1fd0eff1e2ca8p-12, -0x1.f74c6ec7c52a4p-11, -0x1.0c313d519a1bfp-7,
        0x1.72474fe502e62p-6, 0x1.83f1c4fe2f533p-4, -0x1.3daefb9d8b0cbp-3, -0x1.6a0e692b762c6p-3, 0x1.7a972dfdd97aap-57,
        0x1.fda1d9611bd79p-57, 0x1.6p3, 0.0
    },
    {
        -0x1.6b9bb9bd04415p-31, 0x1.d8e3bf11378c6p-25, 0x1.ae93b1827e9cdp-25, -0x1.5e61f0ce86b06p-18,
        -0x1.688a16609a23bp-20, 0x1.40ffdb1dd56fap-12, -0x1.29f0150a2d791p-14, -0x1.371275352338bp-7,
        0x1.2a368a4267407p-8, 0x1.d8b1c6c72d6c6p-4, -0x1.87893fbf9e68ep-5, -0x1.d3b82b96e7bd5p-3, 0x1.b8906a0c8f797p-59,
        -0x1.0aa54894e7ca9p-57, 0x1.7p3, 0.0
    },
    {
        -0x1.8706b1511f2acp-29, 0x1.8437f8bd81e85p-25, 0x1.489e0b2e76f39p-22, -0x1.275ad1400ec78p-18,
        -0x1.5fde5312b612p-16, 0x1.170aa1d6884efp-12, 0x1.a5d444378a4fcp-11, -0x1.1833eb805d80ap-7,
        -0x1.c62ba87dc9f6p-7, 0x1.bb1ff730180f9p-4, 0x1.0f9af9016c4dep-4, -0x1.c99ea2b162976p-3, -0x1.5c1bec769ec7p-58,
        -0x1.8d26d13a1ba1ap-57, 0x1.8p3, 0.0
    },
    {
        -0x1.295c38472c59bp-28, 0x1.ae7f24881a227p-26, 0x1.0488bc70a9889p-21, -0x1.5aa41c3fa50d6p-19,
        -0x1.275df40700586p-15, 0x1.5b6bc6b4c837bp-13, 0x1.7ff9884b41b77p-10, -0x1.725ee88485a95p-8,
        -0x1.d04da0dfe9b15p-6, 0x1.3681ddbc8e6dbp-4, 0x1.47ee70ec64d16p-3, -0x1.52e92c46b451fp-3,
        -0x1.f97b1d021c80ep-59, 0x1.4c6e4f25cdce8p-57, 0x1.9p3, 0.0
    },
    {
        -0x1.481e629ac1429p-28, -0x1.0a1526b401b2fp-31, 0x1.2619cbe14043dp-21, -0x1.c329a9260a23dp-23,
        -0x1.5702dcbc2105ep-15, 0x1.f26a7763b3c03p-16, 0x1.ce1ada00a260cp-10, -0x1.91846b07fcc0ap-10,
        -0x1.24041f4de77c4p-5, 0x1.b6d545dee34ep-6, 0x1.b2dcc9e0d60ecp-3, -0x1.2005d262e7443p-4, 0x1.f20bb36417012p-57,
        -0x1.df69ee717f533p-64, 0x1.ap3, 0.0
    },
    {
        -0x1.1e865928d21fbp-28, -0x1.29463279a897bp-26, 0x1.16b6c13297088p-21, 0x1.6c42f9c2821d5p-20,
        -0x1.4a6704659273cp-15, -0x1.0413e300da47p-14, 0x1.c5bce33ae7b73p-10, 0x1.59eb160bf719ap-10,
        -0x1.2518580118168p-5, -0x1.0c83a2d7add23p-7, 0x1.bf3337873a7d9p-3, 0.0, -0x1.99fe6739b7e04p-57,
        -0x1.05dcc62d0d222p-54, 0x1.aa5baf310e5a2p3, 0.0
    },
    {
        -0x1.5570e01bb642p-29, -0x1.78a97e6363017p-25, 0x1.46efdf3b1bbdcp-22, 0x1.097bf97c687c9p-18,
        -0x1.99b5a1832541p-16, -0x1.ca8152984d2edp-13, 0x1.2a24a5b6ac398p-10, 0x1.a01d8b8006a24p-8,
        -0x1.98c306561a0afp-6, -0x1.276401e5672d7p-4, 0x1.4ad8fc448e80dp-3, 0x1.1126fe3c3df7cp-3, 0x1.6e1f467a23957p-57,
        0x1.b50acebc65247p-57, 0x1.cp3, 0.0
    },
    {
        -0x1.5d3051a4f9832p-32, -0x1.bc07eb0101315p-25, 0x1.0342b09aa8fdfp-24, 0x1.4190d4c8a184p-18,
        -0x1.b81002b9cb8f1p-18, -0x1.1f1f9af54a7d6p-12, 0x1.918d2c3d0b835p-12, 0x1.0f766520eb915p-7,
        -0x1.47a927724b0bap-7, -0x1.94bd7d14391c3p-4, 0x1.2ff17b831a39ep-4, 0x1.8c24bf21d2ap-3, 0x1.af569f2b2dcd1p-59,
        0x1.58d35daae28f2p-59, 0x1.dp3, 0.0
    },
    {
        0x1.02a65d3275979p-29, -0x1.9627084636b3cp-25, -0x1.9d3725cd95a2ap-23, 0x1.2d115b0f8144dp-18,
        0x1.9f60705e5df4p-17, -0x1.141096f2307f9p-12, -0x1.ccace3ced45a6p-12, 0x1.0cef7c79dafaep-7,
        0x1.c004eeac9d127p-8, -0x1.9e608cfd1073p-4, -0x1.c915025dff3fep-6, 0x1.a40d9610fb167p-3, 0x1.f79b0503f99aap-61,
        0x1.c3c69b3ff1246p-57, 0x1.ep3, 0.0
    },
    {
        0x1.ee8e11abedb38p-29, -0x1.11ea4a52345a7p-25, -0x1.a79bb5fa1a57dp-22, 0x1.a4fdfc1eda49cp-19,
        0x1.d4938a3abf671p-16, -0x1.90e160bf54004p-13, -0x1.297063d3b1389p-10, 0x1.95f6c6690a0c1p-8,
        0x1.60ba9641e1937p-6, -0x1.452b540ae722cp-4, -0x1.eb989f167d556p-4, 0x1.5673dd289136p-3, -0x1.6aa5b3e718275p-60,
        -0x1.6dc1894ee642fp-58, 0x1.fp3, 0.0
    },
    {
        0x1.30f519adcf6f1p-28, -0x1.408797b9dc9ccp-27, -0x1.0c381498981p-21, 0x1.228b341b4a7c2p-20,
        0x1.3265f70b68b25p-15, -0x1.3e90ecb5a487dp-14, -0x1.9472dde7bf051p-10, 0x1.6bc56df0c27f1p-9,
        0x1.f67d00058a58p-6, -0x1.429996e8db72ap-5, -0x1.71c39ecf70e5fp-3, 0x1.72444f11db6adp-4, -0x1.1445852c3dc5dp-59,
        -0x1.27d5552dec8acp-59, 0x1p4, 0.0
    },
    {
        0x1.2263cdb923e95p-28, 0x1.d33018e3c5332p-27, -0x1.069fadd47ce69p-21, -0x1.19d8c48db9c87p-20,
        0x1.32cb00d8115f6p-15, 0x1.877991ae2a5ecp-15, -0x1.9f4be6075673cp-10, -0x1.fda0298c87473p-11,
        0x1.09463bbd0367dp-5, 0x1.86dd32e059bc3p-8, -0x1.925c6fca08f54p-3, 0.0, 0x1.63a4e0efa9d24p-58,
        -0x1.6eb905ba2abfap-52, 0x1.0787b360508c5p4, 0.0
    },
    {
        0x1.9dd6dd238f76fp-29, 0x1.2eb744e8ca188p-25, -0x1.7ed434af14e0cp-22, -0x1.a176bb77e5131p-19,
        0x1.ce077a52b3b1cp-16, 0x1.60a807cfdc0fep-13, -0x1.4386e132d3876p-10, -0x1.39c0219f1afp-8, 0x1.abf32b30145fap-6,
        0x1.b634de44d6b2cp-5, -0x1.5018676441b84p-3, -0x1.900cd663e892fp-4, -0x1.ddb9805b7daccp-57,
        0x1.c61c4af63d98ap-59, 0x1.1p4, 0.0
    },
    {
        0x1.331bc74e8fa88p-30, 0x1.9218d355150abp-25, -0x1.3b43626c137b4p-23, -0x1.1e326e30c7bfcp-18,
        0x1.a287700c1c414p-17, 0x1.f656390a94237p-13, -0x1.3f7da0d5bae55p-11, -0x1.d3b527011a28fp-8,
        0x1.c89aabe3887ecp-7, 0x1.5890b5660d0c4p-4, -0x1.801730407a8aap-4, -0x1.4eaf21019353dp-3, -0x1.6f66db0de476p-58,
        -0x1.2cd11f8bbcb1bp-58, 0x1.18p4, 0.0
    },
    {
        -0x1.141dcee40c6f6p-30, 0x1.94a79487560fep-25, 0x1.9010899743bc1p-24, -0x1.2656134841ea7p-18,
        -0x1.5c431e9022532p-18, 0x1.08aeb34f16305p-12, 0x1.2e222d95b6b5ep-13, -0x1.fa5ae24f1253cp-8,
        -0x1.460da99d81b57p-10, 0x1.80280fe767466p-4, -0x1.7da29bb01af49p-9, -0x1.81037667e466ap-3,
        0x1.a9bddc761c516p-63, -0x1.448086c919eb5p-57, 0x1.2p4, 0.0
    },
    {
        -0x1.87a5272d51bb2p-29, 0x1.3798fafeadecap-25, 0x1.48a90fc2bcf2cp-22, -0x1.d15d99b4b41eap-19,
        -0x1.63f49cc8b0232p-16, 0x1.ae3239af4e777p-13, 0x1.bac02dedae603p-11, -0x1.a76d6a60e3568p-8,
        -0x1.019fea9049c21p-6, 0x1.4abaa5cd0be73p-4, 0x1.60f5f03fe341dp-4, -0x1.554404920d38dp-3,
        -0x1.270bec1655e14p-60, 0x1.b72366d899899p-57, 0x1.28p4, 0.0
    },
    {
        -0x1.11fd742dc08cdp-28, 0x1.255e354a36c19p-26, 0x1.dad77a30663d5p-22, -0x1.d50bee451067ap-20,
        -0x1.0b2efff90426ap-15, 0x1.ce6cb1ccf2b2dp-14, 0x1.5bd68ca6495c4p-10, -0x1.e34a60351ec1ap-9,
        -0x1.ab32ec1912fc6p-6, 0x1.8ef1b7bb7674ap-5, 0x1.37b0cac59a7b6p-3, -0x1.b0f3fbde5a4a8p-4, 0x1.030111f5c0421p-58,
        -0x1.f460b36770723p-59, 0x1.3p4, 0.0
    },
    {
        -0x1.1cee73465058fp-28, -0x1.7ca5face1443p-27, 0x1.ef156c09025a6p-22, 0x1.c12a0ef55ab2p-21,
        -0x1.1e5d2820efdbbp-15, -0x1.32ee4ca2b4282p-15, 0x1.80503724ab1bp-10, 0x1.8acdc5b058c28p-11,
        -0x1.e7dc08e70e997p-6, -0x1.2ccb0e9755942p-8, 0x1.70c511227d5aap-3, 0.0, -0x1.34591e089efd2p-60,
        0x1.a10b2f7b4e69dp-53, 0x1.39da8e7416ca4p4, 0.0
    },
    {
        -0x1.cbc0e9d93a859p-29, -0x1.cd54cdfba0c4dp-26, 0x1.9fd17867008d9p-22, 0x1.377a0e46ec43fp-19,
        -0x1.ea3c216b17706p-16, -0x1.018648e1787d3p-13, 0x1.4f7ebcf24749p-10, 0x1.c083c4ff9b625p-9,
        -0x1.b28e1417d8299p-6, -0x1.32961d5c293d2p-5, 0x1.4f390976b20f2p-3, 0x1.11bf9c29ff1c6p-4,
        -0x1.08ee84d5acfa7p-62, -0x1.6aded9fcd7f8bp-58, 0x1.4p4, 0.0
    },
    {
        -0x1.e1755c02a01f6p-30, -0x1.616f91e4fa152p-25, 0x1.ca40d6ca9c7efp-23, 0x1.f07b796214fd9p-19,
        -0x1.1bd9d2327133ap-16, -0x1.ae3dd3682f688p-13, 0x1.9769156c572b4p-11, 0x1.8c24e2c971ea3p-8,
        -0x1.140200778220ep-6, -0x1.21385548c43a4p-4, 0x1.bc3679eb57bc8p-4, 0x1.170cb2adbd0e1p-3,
        -0x1.5fc46e10ce0bdp-59, 0x1.205cff541f118p-57, 0x1.48p4, 0.0
    },
    {
        0x1.f84787f69995bp-33, -0x1.85ff0e8d62c99p-25, -0x1.0bb85d34f965cp-27, 0x1.17d2cc1720eddp-18,
        -0x1.c75517c2e11dfp-21, -0x1.f09a14475096fp-13, 0x1.a3876d6c6b6e4p-14, 0x1.d54be8be398acp-8,
        -0x1.b80d0594fdbdfp-9, -0x1.606eaa5c1b37ap-4, 0x1.d1ce1a857b397p-6, 0x1.5e744e39a0df1p-3,
        -0x1.ccce93c90327dp-64, 0x1.2bfc02455fb0cp-58, 0x1.5p4, 0.0
    },
    {
        0x1.237992a1a7c6ap-29, -0x1.4d32899df4f84p-25, -0x1.de9a167732aep-23, 0x1.e85111bb577f4p-19,
        0x1.fa64914516c6bp-17, -0x1.bb0578bcdcec5p-13, -0x1.334280e91fc07p-11, 0x1.ac6df396b92a7p-8,
        0x1.5c417ccf68222p-7, -0x1.49748523fe7a7p-4, -0x1.cf5d5b6a36275p-5, 0x1.4f91ae3f5377ep-3, 0x1.8fefb91610d09p-61,
        -0x1.67a26429c3be3p-58, 0x1.58p4, 0.0
    },
    {
        0x1.dd9a14a64f4e6p-29, -0x1.8c5a33019bb89p-26, -0x1.98e3b51db76p-22, 0x1.2e093115130ffp-19,
        0x1.c6c6703399738p-16, -0x1.1cbe08b0ad146p-13, -0x1.24da3b908e066p-10, 0x1.1dcc8d04d598fp-8,
        0x1.64533720ce241p-6, -0x1.c78388f4fc447p-5, -0x1.02009de3c8518p-3, 0x1.dff5d1656814ep-4, -0x1.a3ca48e47746p-57,
        0x1.301cfb530696p-59, 0x1.6p4, 0.0
    },
    {
        0x1.1170850ef7a55p-28, -0x1.267894c93b72dp-29, -0x1.dde2ce4ba062p-22, 0x1.7aaf45d6383f7p-22,
        0x1.0fded9d80bab7p-15, -0x1.ed3c9a62bfd48p-16, -0x1.6705cd84d964ap-10, 0x1.36d9b8d7c46cdp-10,
        0x1.c0eeb9beb9c07p-6, -0x1.260634927c317p-6, -0x1.4ec5431b7d1f2p-3, 0x1.623d1dcbbba43p-5, 0x1.1fec4c8545c67p-57,
        -0x1.30c98fff6f03dp-59, 0x1.68p4, 0.0
    },
    {
        0x1.ee335f4fd5fe4p-29, 0x1.4473b035dddc9p-27, -0x1.d4379c7cf5eb4p-22, -0x1.6f3eb4a805664p-21,
        0x1.0cf25d83d5cb2p-15, 0x1.f0de06d099d9ep-16, -0x1.66f4ec2815647p-10, -0x1.3d369f9588495p-11,
        0x1.c5e1ad9fb2f3dp-6, 0x1.e16555e108e24p-9, -0x1.5664e13b70621p-3, 0.0, -0x1.d60831d7b82c4p-57,
        -0x1.7bc6d5a660382p-54, 0x1.6c294e3d4d8acp4, 0.0
    },
    {
        0x1.3426d93e3279ep-29, 0x1.2d95219d55f33p-25, -0x1.1b4263731b029p-22, -0x1.a2f78cf564e59p-19,
        0x1.53598f7691275p-16, 0x1.67425f3c8d238p-13, -0x1.d813bd84eb84bp-11, -0x1.47a0da5a3dfa9p-8,
        0x1.36ecc32119b39p-6, 0x1.da63dbab9b5d9p-5, -0x1.e845b95e1adc2p-4, -0x1.c66f7697126efp-4,
        -0x1.1c11eecd0e4dbp-58, 0x1.6cf44e81e3da3p-58, 0x1.78p4, 0.0
    },
    {
        0x1.e81d90feff025p-32, 0x1.6e3b4a158ed73p-25, -0x1.177eb6c4e6761p-24, -0x1.041829d618759p-18,
        0x1.8e278ca4d0d05p-18, 0x1.c91e461dd4319p-13, -0x1.3eb38d514321dp-12, -0x1.ac351d6cf01b4p-8,
        0x1.d781cde60de12p-8, 0x1.3f2c42ad9808bp-4, -0x1.980f61628933bp-5, -0x1.3b784f2267ac7p-3,
        -0x1.ecc8e309817dfp-60, -0x1.f9ace99964bebp-58, 0x1.8p4, 0.0
    },
    {
        -0x1.8935526dcaa9ap-30, 0x1.565154d9125e5p-25, 0x1.38e17571b43e6p-23, -0x1.ef22fe581c6a6p-19,
        -0x1.3f3ce41588325p-17, 0x1.bb84351007bf1p-13, 0x1.7301741d34dddp-12, -0x1.a7da8f357843p-8,
        -0x1.8e96ecd81859bp-8, 0x1.4285a4125f56ep-4, 0x1.ee92b8e69162dp-6, -0x1.4596793c45b3ap-3,
        -0x1.4f37c101dcbc5p-64, 0x1.d58003b968511p-57, 0x1.88p4, 0.0
    },
    {
        -0x1.9311293de083ep-29, 0x1.da026409d1a16p-26, 0x1.556635c003852p-22, -0x1.600455fb6a2bcp-19,
        -0x1.77c28884d1131p-16, 0x1.43c83316d710ap-13, 0x1.df2c78528f27cp-11, -0x1.3da63342a61f7p-8,
        -0x1.20dcc971f4499p-6, 0x1.f004efa58aa7fp-5, 0x1.9ed89bec2d58fp-4, -0x1.00b7a1b3f1382p-3, 0x1.6b9673369ba11p-58,
        -0x1.30d38e6726f0ep-57, 0x1.9p4, 0.0
    },
    {
        -0x1.fde0f2f8537abp-29, 0x1.331762a07e66ep-27, 0x1.b97b9335b2f77p-22, -0x1.fc7299d8c1d25p-21,
        -0x1.f1e59be225a31p-16, 0x1.011ae5780e16bp-14, 0x1.46136cae147fdp-10, -0x1.1219d1c114764p-9,
        -0x1.94cc65872f4a6p-6, 0x1.cc7520e1d3e27p-6, 0x1.2c05cc3ebe68dp-3, -0x1.fc4d365fdbd8ep-5, 0x1.018eb281ca434p-57,
        0x1.c21ecf4065b24p-59, 0x1.98p4, 0.0
    },
    {
        -0x1.ef8575b5495bdp-29, -0x1.0989b6a882217p-27, 0x1.bc20e3f5c918cp-22, 0x1.32e015849e28dp-21,
        -0x1.fc1bbf6d491e4p-16, -0x1.9c58076ceb837p-16, 0x1.51d30d78acf58p-10, 0x1.05fa598ef60ffp-11,
        -0x1.aa0ce0421d1aap-6, -0x1.8c833077fbe56p-9, 0x1.40f90793605bbp-3, 0.0, 0x1.9eb09bb391ed8p-57,
        -0x1.61c29fac28fdfp-54, 0x1.9e7570dcea106p4, 0.0
    },
    {
        -0x1.668a9e00d3825p-29, -0x1.f11b71f3b0c05p-26, 0x1.42ee25daca6adp-22, 0x1.55ac53bcac653p-19,
        -0x1.7b4b08cdb1b44p-16, -0x1.21f8609b9071ep-13, 0x1.02eeea9f5285ep-10, 0x1.05d2ff6f33702p-8,
        -0x1.4f47567cbf212p-6, -0x1.77867debeab21p-5, 0x1.03437bb8aba3p-3, 0x1.64774533725d5p-4, 0x1.ee8da84c6091cp-58,
        0x1.91a955f8b062bp-58, 0x1.a8p4, 0.0
    },
    {
        -0x1.188cbf7519c41p-30, -0x1.4ffa240255a35p-25, 0x1.103ce464a71a7p-23, 0x1.d95ad3532cc6dp-19,
        -0x1.56473c2328b08p-17, -0x1.9cc980ed1733dp-13, 0x1.f13bc42a556b2p-12, 0x1.7ffed3a9fbd4fp-8,
        -0x1.549b213d6240bp-7, -0x1.1c79c7a2f4b3ap-4, 0x1.153b013bcd7bap-4, 0x1.17b9bb6785728p-3, 0x1.dfa49ed874432p-60,
        -0x1.76c18f40e1e51p-58, 0x1.bp4, 0.0
    },
    {
        0x1.b0f1f95cac588p-31, -0x1.557ca32ff4c59p-25, -0x1.413b96f44facbp-24, 0x1.e936870b13391p-19,
        0x1.2a62d048fe36bp-18, -0x1.b2320bf6f97c5p-13, -0x1.2efef6fce7163p-13, 0x1.9b6cde46fd4cfp-8,
        0x1.0658ac253ccf2p-9, -0x1.36b04cd94c8a1p-4, -0x1.ab99a7445e6e2p-8, 0x1.37962b3d52ff6p-3,
        -0x1.fde108c6dddf7p-62, 0x1.94ad10d9f3f25p-57, 0x1.b8p4, 0.0
    },
    {
        0x1.4707ae00a6cc7p-29, -0x1.09040a2b2b19fp-25, -0x1.11feca513a74ep-22, 0x1.834fec0967ad9p-19,
        0x1.2a4935a363679p-16, -0x1.5ec2fbeeb5784p-13, -0x1.783fd8b24e72ep-11, 0x1.5329e4e8caf0fp-8,
        0x1.c0bd169cda6dep-7, -0x1.055622ecea241p-4, -0x1.3ebfba118cf62p-4, 0x1.0b5e9426bf301p-3, 0x1.0f442353170bap-58,
        -0x1.f779d87a51f7ep-57, 0x1.cp4, 0.0
    },
    {
        0x1.d01e638ab2e88p-29, -0x1.f88b07c8d3f27p-27, -0x1.8ed54fe3377e6p-22, 0x1.83fa11cec135bp-20,
        0x1.be8c772c533bap-16, -0x1.70947a981b60dp-14, -0x1.227b61c2fb4cbp-10, 0x1.74aaea43ccb04p-9,
        0x1.666b7b5bafa6fp-6, -0x1.2b54a3fa9f91ap-5, -0x1.083a5306c3348p-3, 0x1.3e43c770e021p-4, 0x1.d550bb16a7709p-57,
        -0x1.d3bc073d5d62dp-61, 0x1.c8p4, 0.0
    },
    {
        0x1.e73b250e6d1f2p-29, 0x1.c4c6a348bd28dp-28, -0x1.a70fbe927875fp-22, -0x1.0509756256de2p-21,
        0x1.e26d375d343c3p-16, 0x1.5d17602b6b01p-16, -0x1.3fe9d5baa5bb3p-10, -0x1.ba181c068995ap-12,
        0x1.92bb5e1e159fdp-6, 0x1.4df208bbd4521p-9, -0x1.2f2072e638cf4p-3, 0.0, 0x1.be74e2eb5f61dp-57,
        -0x1.7e3b01386785fp-55, 0x1.d0bfcf471fcccp4, 0.0
    },
    {
        0x1.8a17f7aa5036bp-29, 0x1.873d06c5c6d19p-26, -0x1.5e385b50cda4p-22, -0x1.09bc9f3a3d4b7p-19,
        0x1.960526c3497c8p-16, 0x1.bd96a6136a7f5p-14, -0x1.11c66d179dcf6p-10, -0x1.8d55566fd90b7p-9,
        0x1.5e7725b2aebdp-6, 0x1.1945cc8ac134cp-5, -0x1.0c38f9f5c9197p-3, -0x1.0764070ecf766p-4, 0x1.35f263a30bdbep-61,
        0x1.a9745ec1081cp-59, 0x1.d8p4, 0.0
    },
    {
        0x1.9e2aac12a26ccp-30, 0x1.2d0757fe3fd4p-25, -0x1.7eee73d4e9b8ep-23, -0x1.a5309e59d7b59p-19,
        0x1.cd1a78980828ap-17, 0x1.6ce3b263f641dp-13, -0x1.4259b319c7847p-11, -0x1.516004c07ba5cp-8,
        0x1.ab052eb3cab1ap-7, 0x1.f11d9582d6f67p-5, -0x1.518cbe88efef6p-4, -0x1.e66783a4dbb98p-4, 0x1.940df1b22b19bp-59,
        0x1.6169264360892p-60, 0x1.ep4, 0.0
    },
    {
        -0x1.affd960c9d275p-33, 0x1.4c87bf8a6ba4ap-25, 0x1.5ef317df9d57p-27, -0x1.d8e1d7ddd3667p-19,
        0x1.227567f10ad72p-23, 0x1.a0c3c3de562b6p-13, -0x1.6f63df3a0c593p-15, -0x1.8858d53a0c9b5p-8,
        0x1.b2a3afb049c27p-10, 0x1.268be608b12e2p-4, -0x1.e132e78c2396ep-7, -0x1.25e056f27c937p-3,
        -0x1.6f667d91093acp-62, 0x1.2c774b0dd1e37p-57, 0x1.e8p4, 0.0
    },
    {
        -0x1.f68f6b7c3ec67p-30, 0x1.1b9b5c2e8a789p-25, 0x1.9f89ebbb1debap-23, -0x1.99ebc2f7bca4bp-19,
        -0x1.be206072f90b5p-17, 0x1.6f5021ca99412p-13, 0x1.15410ac2b1d6p-11, -0x1.5fa4bb50583f2p-8,
        -0x1.458406592515p-7, 0x1.0c7bd8f71c678p-4, 0x1.c6a65e31bc413p-5, -0x1.106f0d8d3c8dcp-3, 0x1.6f3ed96e73576p-59,
        0x1.fcacff305811ep-59, 0x1.fp4, 0.0
    },
    {
        -0x1.9c012a8924e19p-29, 0x1.4e4db3ffdd978p-26, 0x1.5faefe1d2bc34p-22, -0x1.f249f262b8ff3p-20,
        -0x1.87375ca70b7efp-16, 0x1.cbfdf6b6cf54bp-14, 0x1.f9dc87be7714ap-11, -0x1.c52d27982e99ep-9,
        -0x1.364df27c09e16p-6, 0x1.63a4f34bb4e21p-5, 0x1.c71b822b9863fp-4, -0x1.72772e6dc60bep-4,
        -0x1.3e438a10b7b75p-58, -0x1.6576a88ed2b34p-61, 0x1.f8p4, 0.0
    },
    {
        -0x1.d736a19a69d71p-29, -0x1.8ab5efbc82e56p-28, 0x1.946acfef401dp-22, 0x1.c2c33a98f2bd5p-22,
        -0x1.cc11a5bf3040bp-16, -0x1.2c5f5edab2438p-16, 0x1.3081def961f68p-10, 0x1.7b7997babdbcep-12,
        -0x1.7ed5fffc1c773p-6, -0x1.1e438b722c4bp-9, 0x1.1ff5eec6a01cdp-3, 0.0, -0x1.a6bf23e77d831p-59,
        0x1.f5efd41f756b6p-53, 0x1.018476e6b2bfp5, 0.0
    },
    {
        -0x1.a08df043ef3edp-29, -0x1.1f5d4fbef78f7p-26, 0x1.6eac49f905802p-22, 0x1.800802186a81ep-20,
        -0x1.a53116dfd96ecp-16, -0x1.3c4a4bd3aeec4p-14, 0x1.1987915b0dadep-10, 0x1.14935b90c9858p-9,
        -0x1.6577e490bf415p-6, -0x1.7f247d358df96p-6, 0x1.0f8ebe5aeca2ap-3, 0x1.5e0d2d4aab5cap-5,
        -0x1.a73f7d07608ccp-58, -0x1.2cf13d23a9c65p-60, 0x1.04p5, 0.0
    },
    {
        -0x1.062c3ef22531p-29, -0x1.06b900919e30bp-25, 0x1.d97a7175060a9p-23, 0x1.6d3b1c6ef3b56p-19,
        -0x1.16d256f69224ap-16, -0x1.3a7183a350cb5p-13, 0x1.7dedc1c023127p-11, 0x1.2101dc55256bbp-8,
        -0x1.f08d41ebadd2ap-7, -0x1.a7745bc772617p-5, 0x1.81ee8000acf26p-4, 0x1.9c2359648d013p-4, 0x1.4401619f12e52p-58,
        0x1.66b44b817a174p-58, 0x1.08p5, 0.0
    },
    {
        -0x1.75c125c4c213ep-32, -0x1.3cd7ac982abd5p-25, 0x1.9c43a292d3b25p-25, 0x1.bfe69a8dc237p-19,
        -0x1.1cb7e65767c9ep-18, -0x1.8884dd9d79f83p-13, 0x1.bc7706a8c8b51p-13, 0x1.6f938d8b9645p-8,
        -0x1.425b09581a825p-8, -0x1.129f314faa5d1p-4, 0x1.12fd48cfa6285p-5, 0x1.10d0126aab03fp-3, 0x1.3346a076ad28fp-59,
        0x1.48f8c4ebc3372p-58, 0x1.0cp5, 0.0
    },
    {
        0x1.6249da25fe2e3p-30, -0x1.25de7f235a44p-25, -0x1.1f21bb97e298ep-23, 0x1.a556db5d4787dp-19,
        0x1.2d71bb6337687p-17, -0x1.76a1e55ea8f96p-13, -0x1.6d510fbb86f24p-12, 0x1.640bf2de5faedp-8,
        0x1.a0a1bc453a2fp-8, -0x1.0e057a673793fp-4, -0x1.193fa63170d32p-5, 0x1.105331d049699p-3, -0x1.9e3b8e10c2de1p-60,
        -0x1.4aa536b970283p-57, 0x1.1p5, 0.0
    },
    {
        0x1.636633d2c0d0cp-29, -0x1.90b33b6d77315p-26, -0x1.2d65005f661c5p-22, 0x1.25707402ef64dp-19,
        0x1.4d218d7a1475cp-16, -0x1.0a72ac79afc63p-13, -0x1.ac1250d80786fp-11, 0x1.027f7c591f9cfp-8,
        0x1.0500ae5bfcffcp-6, -0x1.900bbf3a67437p-5, -0x1.7c916699b9051p-4, 0x1.9b6c292720237p-4, 0x1.2a3f0a0a067bep-60,
        -0x1.2692950e6db5ep-58, 0x1.14p5, 0.0
    },
    {
        0x1.bdaf656af8bd1p-29, -0x1.ddec9a472e4cap-28, -0x1.80631e47fc064p-22, 0x1.81afb05d46b45p-21,
        0x1.b08c921b0fab7p-16, -0x1.7d652e46abef7p-15, -0x1.1b3cbc044c637p-10, 0x1.8efa2478c3639p-10,
        0x1.605f5a210c451p-6, -0x1.4a18a6c7adb15p-6, -0x1.065aa37827e99p-3, 0x1.685fb13f6a3e2p-5,
        -0x1.0528a54e180cap-61, 0x1.39531e0aa2dc8p-60, 0x1.18p5, 0.0
    },
    {
        0x1.af33f10e0bef1p-29, 0x1.5e199ef03f732p-28, -0x1.83e4179f9305ap-22, -0x1.8a1a1ea1b5816p-22,
        0x1.b86bad2f2c286p-16, 0x1.05f1156b656f6p-16, -0x1.2316250b47c54p-10, -0x1.4a538a4829074p-12,
        0x1.6d9afe88301f7p-6, 0x1.f1e1e7f394271p-10, -0x1.12dd57bf18ad9p-3, 0.0, -0x1.3f75e7db65dbp-59,
        -0x1.f89dcedb3ea9bp-52, 0x1.1aa890dc5e97cp5, 0.0
    },
    {
        0x1.322d507734845p-29, 0x1.bc441fa248122p-26, -0x1.10945e3999ddfp-22, -0x1.32bf4705be117p-19,
        0x1.3cb63b477945fp-16, 0x1.06582d4e9712p-13, -0x1.ac529fbd368e7p-11, -0x1.df170ca296f7fp-9,
        0x1.132426a2216d8p-6, 0x1.5cb6b618271fep-5, -0x1.a70964aec820cp-4, -0x1.51390ff3aeef5p-4, 0x1.65d29cdbcaa77p-58,
        -0x1.9c65db45ffb48p-59, 0x1.2p5, 0.0
    },
    {
        0x1.c291f71e4f9cbp-31, 0x1.278efd0c365f3p-25, -0x1.ac8025972d066p-24, -0x1.9fb38146f8465p-19,
        0x1.08692d12ac56bp-17, 0x1.6a8a047c7265ep-13, -0x1.79d996b9bc676p-12, -0x1.51f4679889ab7p-8,
        0x1.fe8b2b4af021bp-8, 0x1.f6d7bdce09a35p-5, -0x1.9b0970a0e063cp-5, -0x1.f195e941ea4dp-4, -0x1.d4ef75b210cb3p-59,
        -0x1.54b3e3e0819ccp-58, 0x1.24p5, 0.0
    },
    {
        -0x1.a6bff5698bda8p-31, 0x1.28b342e57cceap-25, 0x1.4868b61f304a8p-24, -0x1.a6c59c6ac2f93p-19,
        -0x1.477744cdfb50bp-18, 0x1.75ae06ac404a8p-13, 0x1.7423e27eb179fp-13, -0x1.6127d59b69eadp-8,
        -0x1.86a07a859f278p-9, 0x1.0a6f9c7d3df4bp-4, 0x1.d79527af72ce8p-7, -0x1.0b6d8c1ef9a54p-3,
        -0x1.c99cc9fc8e4dfp-61, -0x1.55121a9de0d43p-60, 0x1.28p5, 0.0
    },
    {
        -0x1.27d6b0a83991dp-29, 0x1.c45731f82deedp-26, 0x1.f238911afd173p-23, -0x1.478a5f560ccc4p-19,
        -0x1.1160025f2cb19p-16, 0x1.263a2522bcea9p-13, 0x1.5cc21b7fe2c33p-11, -0x1.1a9117de2568cp-8,
        -0x1.a6346d8668b1ep-7, 0x1.b12ea92796fc6p-5, 0x1.318daa9cc851bp-4, -0x1.b9a4f884ee308p-4,
        -0x1.76ade6909425cp-59, -0x1.8a4270674d0dbp-59, 0x1.2cp5, 0.0
    },
    {
        -0x1.9c42356e0215p-29, 0x1.9778a2af8bf87p-27, 0x1.61d548834ec47p-22, -0x1.349a3c75878bap-20,
        -0x1.8c4cc19eda51bp-16, 0x1.2120f5059bad3p-14, 0x1.025702a752e44p-10, -0x1.20d02a2201103p-9,
        -0x1.400a7ffb529cap-6, 0x1.cb55cff18a658p-6, 0x1.daaf15ea98cf1p-4, -0x1.e4a779c79975ap-5,
        -0x1.a19d1be866603p-59, -0x1.b63c9379fbe2bp-60, 0x1.3p5, 0.0
    },
    {
        -0x1.ac0800b9fe797p-29, -0x1.30ef86a3dc6a8p-28, 0x1.750c40ab85d25p-22, 0x1.5c42df69b9121p-22,
        -0x1.a7006e5bb0dacp-16, -0x1.ce06f1ef5183fp-17, 0x1.17444a7a03f2cp-10, 0x1.22ebeb8dc1f35p-12,
        -0x1.5e7f53001e4bp-6, -0x1.b62885e006ff1p-10, 0x1.076826cc2c191p-3, 0.0, 0x1.72cc37657138dp-57,
        -0x1.aaaf726a29e97p-54, 0x1.33cc523d5cb69p5, 0.0
    },
    {
        -0x1.53a937dd27fe7p-29, -0x1.685aafafc898p-26, 0x1.2b84a0e0b5406p-22, 0x1.edb7261070ee3p-20,
        -0x1.58d448b046286p-16, -0x1.a2d99a87d6d26p-14, 0x1.ce4a486ce1837p-11, 0x1.7b4a43c2f0492p-9,
        -0x1.268754c145eabp-6, -0x1.11b965ff60ab7p-5, 0x1.c164c2cdcc6c4p-4, 0x1.065fb1673bd33p-4, 0x1.d802ab5837d6ep-62,
        0x1.1138e1e6b42e7p-59, 0x1.38p5, 0.0
    },
    {
        -0x1.551e095bc6024p-30, -0x1.0da829b3a20ffp-25, 0x1.37775cd8d3ba2p-23, 0x1.79883a133e2ep-19,
        -0x1.72b1dee1ad5bfp-17, -0x1.47caf8b6049a1p-13, 0x1.00743fa041d73p-11, 0x1.304523527b31ap-8,
        -0x1.50b76fce1ee9cp-7, -0x1.c2e74335b3ff5p-5, 0x1.0846eb1eddd22p-4, 0x1.bc7f694c1aef7p-4,
        -0x1.ab50849ae59ddp-64, -0x1.4c690f0426397p-58, 0x1.3cp5, 0.0
    },
    {
        0x1.2e7bc5c68856fp-32, -0x1.24e1d842e485ep-25, -0x1.8048bdc229c5dp-26, 0x1.9f42b7c648207p-19,
        0x1.114d9d62398fbp-20, -0x1.6d4a91fcc1426p-13, -0x1.20587a465d69dp-16, 0x1.57ab0da3c5b69p-8,
        -0x1.7389a5fd146b1p-13, -0x1.022e5626668acp-4, 0x1.144b9cc83b27ap-8, 0x1.022060b01d3bfp-3,
        -0x1.c5ec9d195575dp-64, -0x1.036e47ce7918ap-59, 0x1.4p5, 0.0
    },
    {
        0x1.d54dc682c2ddep-30, -0x1.ea01008774cc2p-26, -0x1.87b09495fdcb5p-23, 0x1.60037720a99ebp-19,
        0x1.a9e34e0b49fcp-17, -0x1.39d0acda0ef38p-13, -0x1.0d0db0de46836p-11, 0x1.2b35f0e4ae9adp-8,
        0x1.426f25b3acfd5p-7, -0x1.c799351b4f82p-5, -0x1.cdbe4db39a596p-5, 0x1.cd9495ca9ec44p-4, 0x1.895ab0d01ff03p-60,
        0x1.3e7a5926352c5p-58, 0x1.44p5, 0.0
    },
    {
        0x1.74856c6fee092p-29, -0x1.14ce7fbb378cep-26, -0x1.3e46f78d4962fp-22, 0x1.988daad000ab2p-20,
        0x1.62e5d3df6a43cp-16, -0x1.75ca53df8e7a5p-14, -0x1.ccb7990aa024bp-11, 0x1.6d639c4e71cd9p-9,
        0x1.1c32fdefa2705p-6, -0x1.1ce9202bd0d62p-5, -0x1.a3db9bac8397ap-4, 0x1.2753a7097fe7dp-4, -0x1.3e79c3e72566p-59,
        0x1.5fa0b755800c7p-61, 0x1.48p5, 0.0
    },
    {
        0x1.a27020801cb24p-29, 0x1.114455f5965dfp-28, -0x1.67b938a44f4cdp-22, -0x1.3693c85ba9375p-22,
        0x1.976fb01b1c35ap-16, 0x1.9b64d5c6e706ap-17, -0x1.0cc2238d22336p-10, -0x1.02c289dbdbd05p-12,
        0x1.511c6dadaaa11p-6, 0x1.857d39699972fp-10, -0x1.fa8b41711c83ap-4, 0.0, 0x1.5acedf33d41f7p-58,
        0x1.451b6225acbfbp-54, 0x1.4cefcf1734b62p5, 0.0
    },
    {
        0x1.6b28844d042d8p-29, 0x1.1357aa77510c6p-26, -0x1.3e08588a4139p-22, -0x1.752c8d981e68p-20,
        0x1.6bb4daf09e01ap-16, 0x1.38f4fce02f72ap-14, -0x1.e47e027861ba6p-11, -0x1.17ee61674a671p-9,
        0x1.32cfdd9f89b01p-6, 0x1.8ebc02223fa81p-6, -0x1.d17ccb7242a35p-4, -0x1.78c82cb753065p-5, 0x1.68de30450bea9p-58,
        -0x1.9b1fae86694c6p-59, 0x1.5p5, 0.0
    },
    {
        0x1.b8a02f48dae9p-30, 0x1.e00a1b4275f5fp-26, -0x1.8a94fdec0012cp-23, -0x1.4e8932aaeb7fdp-19,
        0x1.cd2ad78ce7cdep-17, 0x1.212ffd1a02dbfp-13, -0x1.39b63bafc2e6dp-11, -0x1.0b499c57eea15p-8,
        0x1.9587e9791bc2cp-7, 0x1.8a742f308a1dp-5, -0x1.39c44bb184e85p-4, -0x1.83491746b151ep-4, -0x1.1253398a763e2p-58,
        0x1.a7f67aecff232p-58, 0x1.54p5, 0.0
    },
    {
        0x1.9b4919bb06671p-33, 0x1.1b21d2a32c87bp-25, -0x1.e1c2421ddc49fp-26, -0x1.8fc303d6b15c8p-19,
        0x1.58984b0722751p-19, 0x1.5e3e69b7597bap-13, -0x1.131afec28bafbp-13, -0x1.483f9dd3605b7p-8,
        0x1.956e123b3d8dcp-9, 0x1.eb686f0d16c42p-5, -0x1.5e1d417c99c96p-6, -0x1.e9a32014b7af5p-4,
        -0x1.543eb6115d0dfp-61, 0x1.6f733b7c8cbf8p-59, 0x1.58p5, 0.0
    },
    {
        -0x1.5a0dd3c5fcf82p-30, 0x1.0137308de2ba3p-25, 0x1.1d0bcb69b8a25p-23, -0x1.6f61bd8ceaee2p-19,
        -0x1.318c9194e127fp-17, 0x1.45a761ab68c24p-13, 0x1.7c202119718ap-12, -0x1.34d09de81f15bp-8,
        -0x1.bfe2c05b0ff92p-8, 0x1.d3d017cbe3879p-5, 0x1.3ac2e33395deap-5, -0x1.d7ae199c18d82p-4, -0x1.e3fd6f777827p-59,
        0x1.83e59280cce33p-60, 0x1.5cp5, 0.0
    },
    {
        -0x1.47bfebcd17b88p-29, 0x1.5291901251a0ep-26, 0x1.16be19d243954p-22, -0x1.ec9f09d7d395ep-20,
        -0x1.35674a6c1241cp-16, 0x1.bcabfb43f8aa8p-14, 0x1.8fdbfa46d150dp-11, -0x1.ad39d99a165dfp-9,
        -0x1.eb2488b8979d7p-7, 0x1.4ac71ef908cddp-5, 0x1.693871686330bp-4, -0x1.53299d884dbe4p-4, 0x1.6bf91fb4f50f5p-63,
        0x1.34aea73ed1d73p-59, 0x1.6p5, 0.0
    },
    {
        -0x1.9179fa604143bp-29, 0x1.4a4b5e22b574ep-28, 0x1.59f22d7ca5b19p-22, -0x1.0b632a6863481p-21,
        -0x1.854632450a262p-16, 0x1.08dc117dd40a3p-15, 0x1.fe422b119b943p-11, -0x1.1561463f24961p-10,
        -0x1.3e010a188573dp-6, 0x1.cb8350d49b788p-7, 0x1.dae83486862aep-4, -0x1.f6747839f6391p-6, -0x1.65bb37708bffp-61,
        0x1.d32259c82848fp-63, 0x1.64p5, 0.0
    },
    {
        -0x1.7ea37d37c2dfap-29, -0x1.00ad6ab71240cp-28, 0x1.5bc53e533f97cp-22, 0x1.17234edef5f8cp-22,
        -0x1.896d762e1ded4p-16, -0x1.7156c1a9e937dp-17, 0x1.0356bb74b9bb6p-10, 0x1.d037574e1964ep-13,
        -0x1.4524d4813cc23p-6, -0x1.5d353e28547b8p-10, 0x1.e8727daa3daedp-4, 0.0, 0x1.d1a3c2857c9ap-58,
        -0x1.40032091a4ep-52, 0x1.661315d6b133fp5, 0.0
    },
    {
        -0x1.05cfbead40b5ep-29, -0x1.9eef89b4b6a38p-26, 0x1.cf8603b261497p-23, 0x1.1fca3c6f91c8ap-19,
        -0x1.0be7bcde4c345p-16, -0x1.ef311a9050f85p-14, 0x1.68b5325b465eap-11, 0x1.c78641e0f7fc8p-9,
        -0x1.cdba9eba1aa34p-7, -0x1.4e8a0ea0923abp-5, 0x1.61fbf9de687fcp-4, 0x1.46ead5b4787efp-4, 0x1.70efc003ea04ap-59,
        0x1.1c6324ffade5p-58, 0x1.6cp5, 0.0
    },
    {
        -0x1.50b6e1aee6c8dp-31, -0x1.0c22567eb3fd2p-25, 0x1.3f0ca63bea4ecp-24, 0x1.79314bf89bba2p-19,
        -0x1.8853ef3e436f3p-18, -0x1.494ab79a5ebb3p-13, 0x1.176c6183d37a2p-12, 0x1.338e06d9ff963p-8,
        -0x1.789503179652p-8, -0x1.caebed2da7469p-5, 0x1.2ea83163ae8e7p-5, 0x1.c7d8e6759406dp-4, 0x1.afd3f04bd5797p-59,
        0x1.b7c840abd385dp-58, 0x1.7p5, 0.0
    },
    {
        0x1.c02e107ab9bebp-31, -0x1.072f73f9004f1p-25, -0x1.6801bf3e6b99dp-24, 0x1.762aa364ddb07p-19,
        0x1.770374f5cf68cp-18, -0x1.4a2edc2e3cc4bp-13, -0x1.c36f68731632ep-13, 0x1.37c48ac98b4e1p-8,
        0x1.ffe6781e4764p-9, -0x1.d65cd2f653ccfp-5, -0x1.57d1cbada0164p-6, 0x1.d86df8aeb0fcep-4, 0x1.37e9a4dea857dp-63,
        -0x1.d55f59684927dp-58, 0x1.74p5, 0.0
    },
    {
        0x1.1723b1e2ef1d1p-29, -0x1.84f83cfd17022p-26, -0x1.d864dd806ec7fp-23, 0x1.18663b39c005cp-19,
        0x1.04d5e5c59770fp-16, -0x1.f5ccd0d4c2c51p-14, -0x1.4f5a3a5876d21p-11, 0x1.e05bea16e61ebp-9,
        0x1.99c4491430402p-7, -0x1.6f4a04c0e3b41p-5, -0x1.2bc9fd28a7c9cp-4, 0x1.75d63c58ea293p-4, 0x1.516c809156565p-59,
        -0x1.7e041feb09ddcp-58, 0x1.78p5, 0.0
    },
    {
        0x1.78e8ee83bbe42p-29, -0x1.3d49bc0c729c3p-27, -0x1.439e480bdb915p-22, 0x1.de3c903202edep-21,
        0x1.6ae1e6764f6d3p-16, -0x1.be11c4d828934p-15, -0x1.da0f828bdf76ap-11, 0x1.bbe64a537dc2ap-10,
        0x1.267c41afcaa57p-6, -0x1.5ff133127c6a4p-6, -0x1.b66a5db24d061p-4, 0x1.7290e703deb26p-5,
        -0x1.72cd6dc161eebp-59, -0x1.81cb9df8f2854p-59, 0x1.7cp5, 0.0
    },
    {
        0x1.7faec9b8f2d78p-29, 0x1.bf012ebc19767p-29, -0x1.50b374108a813p-22, -0x1.f960f3528f193p-23,
        0x1.7cbd49d108bcp-16, 0x1.4df6f1c7d0aacp-17, -0x1.f5ab33748e0e4p-11, -0x1.a3765d26aae16p-13,
        0x1.3a5ccbc12a67bp-6, 0x1.3b6beb83f292ep-10, -0x1.d8293aa55d18fp-4, 0.0, 0x1.38d7ac7bb7e32p-59,
        -0x1.ccb5a05a6e4aap-52, 0x1.7f36312028ad6p5, 0.0
    },
    {
        0x1.2707c22b9ae1bp-29, 0x1.598ef7b2d77fdp-26, -0x1.032737e99d987p-22, -0x1.dca7c1fdbc5f8p-20,
        0x1.29576ed9855b4p-16, 0x1.97bc9656507d8p-14, -0x1.8d7e3a34a4d3fp-11, -0x1.74e2b0bfb724fp-9,
        0x1.f95fac2b899abp-7, 0x1.103759aa3a9fbp-5, -0x1.80f736ac59d1ap-4, -0x1.08642403ac81ap-4, 0x1.84b4b5675f995p-59,
        -0x1.0373b4af1224bp-58, 0x1.84p5, 0.0
    },
    {
        0x1.120b682edb05p-30, 0x1.f11dfabc42647p-26, -0x1.f1efab46e64cbp-24, -0x1.5c750eb3da30fp-19,
        0x1.26f37994f87bep-17, 0x1.2f30131bd8412p-13, -0x1.9676a9d634f4dp-12, -0x1.1a40f4900f201p-8,
        0x1.09f1f32d739cbp-7, 0x1.a3d843988aaa2p-5, -0x1.a0630c3f049cp-5, -0x1.9fc4e3c403e6ep-4, -0x1.4b7ded497361cp-59,
        -0x1.370b81d349cbbp-60, 0x1.88p5, 0.0
    },
    {
        -0x1.a591ca263e38cp-32, 0x1.074de3410e1fcp-25, 0x1.389c3f7fcbd2fp-25, -0x1.74e97f8cab28dp-19,
        -0x1.25bb364018531p-19, 0x1.47dd1d28bb465p-13, 0x1.33c2da39800c5p-14, -0x1.347b3f77b1fadp-8,
        -0x1.1df206b36224bp-10, 0x1.cfd48dcea7b3bp-5, 0x1.1757fd714953p-8, -0x1.d05f5d34ff40cp-4, 0x1.db82b549e89a1p-65,
        0x1.b3a287ef1cbb6p-62, 0x1.8cp5, 0.0
    },
    {
        -0x1.c7a67bb0c5b46p-30, 0x1.ac0c836cb2f0dp-26, 0x1.7f2291338c99ap-23, -0x1.32977a2b18084p-19,
        -0x1.a45cd3093324ap-17, 0x1.10a3fd3a1b282p-13, 0x1.0c6c0ec20a8f8p-11, -0x1.037239d71e8eep-8,
        -0x1.45b85d6d7bb6ep-7, 0x1.8a844b63d5152p-5, 0x1.d930e089df233p-5, -0x1.8f68900c5532ap-4,
        -0x1.0f780f251bb0bp-60, 0x1.801ff073f78dcp-58, 0x1.9p5, 0.0
    },
    {
        -0x1.5a08bf75c929fp-29, 0x1.c51f0816325f7p-27, 0x1.28185942183c1p-22, -0x1.4cf02c210a661p-20,
        -0x1.4ae80be3b0c0bp-16, 0x1.2f6cca8a0e7d6p-14, 0x1.aede7a48cd45fp-11, -0x1.279ebd2d3d164p-9,
        -0x1.0acc48e43a529p-6, 0x1.cbc874c5972b9p-6, 0x1.8bf579f9e087ep-4, -0x1.dba6ad6aeb9ep-5, -0x1.b48c10b5f189bp-59,
        -0x1.fcc3af83e2ddfp-62, 0x1.94p5, 0.0
    },
    {
        -0x1.7af8e23085624p-29, -0x1.958d562613829p-29, 0x1.46ad67a90ac1cp-22, 0x1.cc3ad43782d2ep-23,
        -0x1.712e4d4d17bbfp-16, -0x1.2fe11972af52ap-17, 0x1.e636fe2594346p-11, 0x1.7d74e12285b6p-13,
        -0x1.3095734a24497p-6, -0x1.1ec0b5de4bc46p-10, 0x1.c96700bf039e2p-4, 0.0, 0x1.cb670867e40d3p-59,
        -0x1.5c457e4a6a2f1p-52, 0x1.985928f96d51ep5, 0.0
    },
    {
        -0x1.4005b310f5928p-29, -0x1.116572ec18c04p-26, 0x1.1787b3bb4f7cp-22, 0x1.764b138a48ce5p-20,
        -0x1.3efa87056be5cp-16, -0x1.3dab6dbf42fe5p-14, 0x1.a8300645d5e66p-11, 0x1.2023817d8374cp-9,
        -0x1.0c4e64e01eac5p-6, -0x1.a115f1e896cb8p-6, 0x1.96d002f1f880ap-4, 0x1.917043d0a5d1fp-5,
        -0x1.7c0e688acc8f8p-58, -0x1.de96d7335793cp-59, 0x1.9cp5, 0.0
    },
    {
        -0x1.6f7ce5465edcfp-30, -0x1.c224f672b0ae6p-26, 0x1.47c6e23110f5cp-23, 0x1.3a75f3a3b86fbp-19,
        -0x1.7db5aa31902p-17, -0x1.10b0f40314671p-13, 0x1.02d8d70879be5p-11, 0x1.fa0d8241d8a6cp-9,
        -0x1.4dbd907cea56fp-7, -0x1.772726131a8a8p-5, 0x1.01b4871ab3bd6p-4, 0x1.725581ea40327p-4, 0x1.8117977f1de41p-58,
        0x1.efb8f5a88c3cp-59, 0x1.ap5, 0.0
    },
    {
        -0x1.074a956597b7fp-35, -0x1.01fe48ff1f8c9p-25, 0x1.309a2e9a4e827p-27, 0x1.6c336984024bep-19,
        -0x1.18e5b0e05cb46p-20, -0x1.3f30fd61016ddp-13, 0x1.010f6584e274bp-14, 0x1.2b67594f06fa6p-8,
        -0x1.9cc5d005e419cp-10, -0x1.c0dbcee210e51p-5, 0x1.7a33b0d35402ep-7, 0x1.c01ee80c2d05bp-4,
        -0x1.3ed848a8cc87cp-61, -0x1.dfcbbf86aafdcp-58, 0x1.a4p5, 0.0
    },
    {
        0x1.5dc7f0cf009dap-30, -0x1.c7f307b60b45dp-26, -0x1.237ddd15cf5bep-23, 0x1.4500a24982069p-19,
        0x1.3ccc4bb44b0d5p-17, -0x1.1faa08448a8cdp-13, -0x1.908a09dae66b1p-12, 0x1.108382a05e012p-8,
        0x1.e0e101df042c3p-8, -0x1.9c9b3d0339af3p-5, -0x1.5958a14b334d4p-5, 0x1.a003321104cf6p-4,
        -0x1.7e309fdb12ac3p-59, 0x1.09e8770a24886p-58, 0x1.a8p5, 0.0
    },
    {
        0x1.35d5afd4290bcp-29, -0x1.1dbd5c0d6e2ddp-26, -0x1.08328e7c9c99p-22, 0x1.9e65e589e2623p-20,
        0x1.263cb240dbbep-16, -0x1.74fca1e492238p-14, -0x1.7dceed0f31facp-11, 0x1.6728c2459456ap-9,
        0x1.d73bb021fe071p-7, -0x1.14404c75ae11fp-5, -0x1.5c822da75482ap-4, 0x1.1add3a42a1542p-4,
        -0x1.c7c2220b43717p-58, -0x1.cd3e0f03a55fep-58, 0x1.acp5, 0.0
    },
    {
        0x1.70fa9735876fep-29, 0x1.73c3b99c441a8p-29, -0x1.3d79233570b21p-22, -0x1.a563972e6461cp-23,
        0x1.6698d6dae6e12p-16, 0x1.160aab82a9b5p-17, -0x1.d818348f97957p-11, -0x1.5cdb5dea9be13p-13,
        0x1.27a96f174b6d1p-6, 0x1.062daee353ef4p-10, -0x1.bbf246914235fp-4, 0.0, 0x1.2c54f103608ep-60,
        0x1.13169f65efc7cp-52, 0x1.b17c038c2018cp5, 0.0
    },
    {
        0x1.50ec79dd2313cp-29, 0x1.8fc04fe9ccccep-27, -0x1.2505c1e6387ep-22, -0x1.0e6b71969e117p-20,
        0x1.4cf89b4a68027p-16, 0x1.c53656aadd2e8p-15, -0x1.b8ff7518f2387p-11, -0x1.95796588ec30dp-10,
        0x1.15d994ac3fb91p-6, 0x1.212255a8fe33ap-6, -0x1.a3b55a62ba59cp-4, -0x1.11d2fc7a2a8d3p-5, 0x1.8ed08f0948ae8p-59,
        -0x1.2a66730a975f3p-59, 0x1.b4p5, 0.0
    },
    {
        0x1.bfe5aafbc161bp-30, 0x1.8caf71644958fp-26, -0x1.8b53f7b60829bp-23, -0x1.141d140ac1878p-19,
        0x1.c7ca95130dd4p-17, 0x1.dd24c57e7c5ddp-14, -0x1.3228cad44b924p-11, -0x1.b923219a35d47p-9,
        0x1.87346d1de9b53p-7, 0x1.45da20d4b7187p-5, -0x1.2b85b8fbf597dp-4, -0x1.40831cb7250f4p-4, 0x1.d1b973cdd5f39p-58,
        -0x1.37dba39f615c4p-58, 0x1.b8p5, 0.0
    },
    {
        0x1.cc84cbce5811dp-32, 0x1.ef69b809658d7p-26, -0x1.b8e882b21b2d9p-25, -0x1.5ca930748c3b3p-19,
        0x1.11632b4d6bf49p-18, 0x1.30b3e13f15994p-13, -0x1.883394d68a8eep-13, -0x1.1d05f0463c447p-8,
        0x1.09eedbb07ba74p-8, 0x1.aa2810f51b7a5p-5, -0x1.addf6fc6bcd3ep-6, -0x1.a85ba02171fep-4, 0x1.1c08c97f924bp-63,
        0x1.0dd419532d872p-58, 0x1.bcp5, 0.0
    },
    {
        -0x1.e57ad5812bc33p-31, 0x1.d8ed5bdd81f5p-26, 0x1.8e5a1b6f46deap-24, -0x1.4fd22b5d14b1bp-19,
        -0x1.a9a8a30d0cd99p-18, 0x1.2823d9e2a3b9cp-13, 0x1.0820e1bc329dbp-12, -0x1.178a55f23ccecp-8,
        -0x1.36aa6e058b582p-8, 0x1.a5ca5960414e8p-5, 0x1.b42b0f4803fp-6, -0x1.a7df6dce46687p-4, 0x1.4e84e9d562f7bp-60,
        0x1.bd8aa9c4b3bfap-61, 0x1.cp5, 0.0
    },
    {
        -0x1.0d4c1741a1ef9p-29, 0x1.4fba4daadcebap-26, 0x1.c97fd87e4c6bep-23, -0x1.e2e911c6106adp-20,
        -0x1.fb8c1035719d3p-17, 0x1.af3e1785ffbfdp-14, 0x1.48054d74d9583p-11, -0x1.9c253a3764a69p-9,
        -0x1.9343786bde16fp-7, 0x1.3abf7299508e2p-5, 0x1.29110b1d8b09cp-4, -0x1.401b1e7b1f23ep-4, 0x1.c083fadfc46b7p-58,
        -0x1.54c007c54b1ebp-59, 0x1.c4p5, 0.0
    },
    {
        -0x1.5e8d79309498bp-29, 0x1.d878711ddf311p-28, 0x1.2d34c1ac5c50ep-22, -0x1.64cd1ae191a2ap-21,
        -0x1.52247e9ad5f3ap-16, 0x1.4d68e4a111874p-15, 0x1.ba73c0b16f4bfp-11, -0x1.4c5e3fe9c51bbp-10,
        -0x1.136b43a640799p-6, 0x1.07fd236995fd4p-6, 0x1.9b113e430d063p-4, -0x1.167f7a05bec4bp-5,
        -0x1.521a83c01ab67p-64, -0x1.f8c4303bf49b6p-59, 0x1.c8p5, 0.0
    },
    {
        -0x1.5c8fe956b0d6fp-29, -0x1.5dc9ff1750a59p-29, 0x1.3500b3be56918p-22, 0x1.83aecc5183931p-23,
        -0x1.5cdc48d0fd568p-16, -0x1.ff51951f0bc91p-18, 0x1.cb20c812f8019p-11, 0x1.40a5531085f6dp-13,
        -0x1.1f7a8fec6eba7p-6, -0x1.e1d930b512f69p-11, 0x1.af9cb49c4f935p-4, 0.0, -0x1.ef78f59c0008cp-61,
        -0x1.5fb7dbd93e256p-53, 0x1.ca9ec5a82324bp5, 0.0
    },
    {
        -0x1.0157968c7442cp-29, -0x1.5213b6f52293bp-26, 0x1.c328c88ca6f38p-23, 0x1.d4a9960295f72p-20,
        -0x1.025bc898e8d1fp-16, -0x1.9336f93c60b7ep-14, 0x1.58e01e70b47e5p-11, 0x1.732cfcd82440cp-9,
        -0x1.b5fdcc20d19b9p-7, -0x1.10f8bef1d0bd9p-5, 0x1.4d653ad085c09p-4, 0x1.0b4d8c9561429p-4, 0x1.bed44520e7e8ap-58,
        0x1.01e66ac5b214dp-58, 0x1.dp5, 0.0
    },
    {
        -0x1.abb2607da4dd1p-31, -0x1.d1dd26fb90615p-26, 0x1.846d8cfaa355ap-24, 0x1.46f7ed4a2cec5p-19,
        -0x1.cc09f242b420ap-18, -0x1.1cfa2cd09bd82p-13, 0x1.3cf0a04700913p-12, 0x1.09dedbf67d42p-8,
        -0x1.9ec651c9ac428p-8, -0x1.8c7fcea6df636p-5, 0x1.44d189620fc5cp-5, 0x1.89d68ddc41e24p-4,
        -0x1.106ea7f30ca8cp-62, 0x1.31db70a9b1037p-58, 0x1.d4p5, 0.0
    },
    {
        0x1.10fc067ab71afp-31, -0x1.df5b2e433a81p-26, -0x1.af48d7d5f7908p-25, 0x1.5350db15a66bcp-19,
        0x1.b8ed149dbe326p-19, -0x1.2a4e0af7d9307p-13, -0x1.03ba870faea0cp-13, 0x1.18bf3c6f038c6p-8,
        0x1.1f0de66cc2f81p-9, -0x1.a6652dabbb2cfp-5, -0x1.758e1c5081df1p-7, 0x1.a74eea60e13e2p-4,
        -0x1.5b6a662d18ff7p-61, -0x1.6790127a2db4ap-58, 0x1.d8p5, 0.0
    },
    {
        0x1.c2cfcdfaa451p-30, -0x1.78352d8169c32p-26, -0x1.7d27849519d95p-23, 0x1.0d08ca2a8c588p-19,
        0x1.a4d6f291f006ap-17, -0x1.dddd4c48d09f7p-14, -0x1.0ea907dbaee8p-11, 0x1.c64ac5e65c668p-9,
        0x1.4b1700b90178bp-7, -0x1.592d8a02618c2p-5, -0x1.e5501e98d1373p-5, 0x1.5d5ad604c9931p-4,
        -0x1.9492ff2f9e8f2p-60, -0x1.98f9c8d601e06p-58, 0x1.dcp5, 0.0
    },
    {
        0x1.4682aa1c588f6p-29, -0x1.6cde0874e4051p-27, -0x1.17c8f2ef9ecb8p-22, 0x1.0bc841a4fd321p-20,
        0x1.3940279d8648bp-16, -0x1.e79f127bbb96cp-15, -0x1.98cc32626664dp-11, 0x1.dabdd3d9e893bp-10,
        0x1.fb9e1c7bc65b3p-7, -0x1.71086e6db7e9ap-6, -0x1.79d98114e8872p-4, 0x1.7dbbe4c935826p-5,
        -0x1.3ba024297d6f1p-59, 0x1.dff23d9dffbafp-59, 0x1.ep5, 0.0
    },
    {
        0x1.5ba8b0f0d5902p-29, 0x1.3c4b6311e0a03p-29, -0x1.2d1f7af2fc53p-22, -0x1.663c1212ce857p-23,
        0x1.53dd97239d87cp-16, 0x1.d83d58012d62dp-18, -0x1.bf2ada1f42ed8p-11, -0x1.280a05223485dp-13,
        0x1.17f0266db2148p-6, 0x1.bcc9df0cf0123p-11, -0x1.a4407e04298d1p-4, 0.0, -0x1.3f5b93b46a367p-58,
        -0x1.c3482175f80d7p-56, 0x1.e3c1731d64f1ep5, 0.0
    },
    {
        0x1.1bbc0bbb2da83p-29, 0x1.13a7217d9bebp-26, -0x1.eefa5f27aaa73p-23, -0x1.7c0f0b02ea4b3p-20,
        0x1.1a1839480d5dcp-16, 0x1.45285bc5df1b2p-14, -0x1.76d117a1e01bep-11, -0x1.29984e349003fp-9,
        0x1.d9e490a04af9dp-7, 0x1.b31be20c7c84ap-6, -0x1.672d622851c24p-4, -0x1.a772481ca5a36p-5, 0x1.36c7999fa62fap-61,
        0x1.ae8533fcd1d1p-59, 0x1.e8p5, 0.0
    },
    {
        0x1.2f1ad626f7a61p-30, 0x1.ac61901164db8p-26, -0x1.0df23c2e70401p-23, -0x1.2bd8887c94358p-19,
        0x1.39f4768066083p-17, 0x1.04a2cbd32c821p-13, -0x1.a959e25f1d55fp-12, -0x1.e5084a182895dp-9,
        0x1.11fee2b6820f3p-7, 0x1.68b96ba59934p-5, -0x1.a6f11c8ba88dap-5, -0x1.656157263dcb7p-4, 0x1.c3b16bad90db4p-59,
        -0x1.e1e83eff44e5bp-60, 0x1.ecp5, 0.0
    },
    {
        -0x1.071b5e45747a7p-33, 0x1.dbba753988f4dp-26, 0x1.2f82955e277dbp-27, -0x1.4fd62117317ebp-19,
        -0x1.55f618a06f1ep-22, 0x1.2676ed11f5459p-13, -0x1.c912f02076501p-24, -0x1.146b339c95df9p-8,
        0x1.1ef967f42a9f1p-12, 0x1.9ed7f4db70628p-5, -0x1.ad74a01165318p-9, -0x1.9ebc29bfb5836p-4,
        -0x1.6c55b9e45236bp-64, 0x1.0f8263513bf37p-60, 0x1.fp5, 0.0
    },
    {
        -0x1.6646902a6397ep-30, 0x1.9700e4918b518p-26, 0x1.2d00bbf1608d8p-23, -0x1.21d3f5c3cf9a4p-19,
        -0x1.4a28086aea68bp-17, 0x1.0057ada2a80f7p-13, 0x1.a5c3fc6a3addep-12, -0x1.e57555df4233bp-9,
        -0x1.001f419916fdep-7, 0x1.6f71d77d4610ep-5, 0x1.749f2bf9f55c3p-5, -0x1.728540e977fb9p-4, 0x1.f498fe9d3e983p-59,
        -0x1.1a1d6b9d9e499p-58, 0x1.f4p5, 0.0
    },
    {
        -0x1.2903ed161a892p-29, 0x1.dfa1f1d96f2ffp-27, 0x1.fb9c813cdca26p-23, -0x1.5b4efa6ea3aa2p-20,
        -0x1.1b6146613d0acp-16, 0x1.383b25e426a93p-14, 0x1.70cd7c18468ep-11, -0x1.2c5ff7bdb1766p-9,
        -0x1.c8b5b842650a7p-7, 0x1.cdc4d8f75b0c3p-6, 0x1.530a5008d56e2p-4, -0x1.d8a6b55e687e3p-5, 0x1.998705805948ep-63,
        -0x1.e68934bd939fap-59, 0x1.f8p5, 0.0
    },
    {
        -0x1.55ca23ec0acd6p-29, -0x1.2605244452987p-29, 0x1.25d3082e92646p-22, 0x1.4c5079644db57p-23,
        -0x1.4b862279724f8p-16, -0x1.b5e2e558bf7f5p-18, 0x1.b416f7d4fc1a9p-11, 0x1.126c8e8ca2698p-13,
        -0x1.10f5ca51f98bp-6, -0x1.9c3f52a2af3f6p-11, 0x1.99be744018c91p-4, 0.0, -0x1.c07e5ba678f81p-58,
        -0x1.977092852774bp-53, 0x1.fce40efb1156ep5, 0.0
    },
};

}  // namespace orvik::zym::bessel
