// Written by tools/approx from the rule in zym/kernels/error/tables.h; do not edit.
#include "zym/kernels/error/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const double kErfcxRows[80][12] = {
    {
        0x1p-5, 0x1.ee6f36157813p-1, 0x1.7abba39b6b41dp-57, -0x1.1169fb537df64p0, 0x1.dd58966040334p-1,
        -0x1.629b76a2a69c4p-1, 0x1.d243baab421cep-2, -0x1.15db862cd6b18p-2, 0x1.310de7a0ac57ap-3, -0x1.381aa0c75ffddp-4,
        0x1.2c527c2a0181ep-5, -0x1.116367fb9e2dbp-6
    },
    {
        0x1.8p-4, 0x1.ce0a0646e5113p-1, -0x1.a85755cc07919p-55, -0x1.eb1908db087a7p-1, 0x1.9fffad725c457p-1,
        -0x1.2d660b103537bp-1, 0x1.83be1c68e8b4dp-2, -0x1.c52835f88e216p-3, 0x1.e8aaf4ca5af4ap-4, -0x1.ebb711d7b03f1p-5,
        0x1.d1d62422b4aecp-6, -0x1.a1e009762c634p-7
    },
    {
        0x1.4p-3, 0x1.b0e65a0b9b0e2p-1, 0x1.02e337680300ap-55, -0x1.ba72ede4b2f93p-1, 0x1.6bc464dfdf17p-1,
        -0x1.0112d4167abe3p-1, 0x1.439973bc6917cp-2, -0x1.72de24dfafab8p-3, 0x1.88d5742aaf0e4p-4, -0x1.84c63d398af08p-5,
        0x1.6aa0273d0a0efp-6, -0x1.408d7151ab872p-7
    },
    {
        0x1.cp-3, 0x1.969b7a95d08eep-1, -0x1.49274e678c94p-58, -0x1.8fd6e466c82f2p-1, 0x1.3f24789f54c47p-1,
        -0x1.b80938053cda9p-2, 0x1.0f03767ecc1ebp-2, -0x1.3099f81474944p-3, 0x1.3cee28105718ap-4, -0x1.347fe6d38c897p-5,
        0x1.1b5032fc0fb77p-6, -0x1.ed993473b7366p-8
    },
    {
        0x1.2p-2, 0x1.7ecff36408789p-1, 0x1.348a3d674438dp-57, -0x1.6a65f1200ea9dp-1, 0x1.18e347930458bp-1,
        -0x1.79dd5bfe4740fp-2, 0x1.c7804d4693e82p-3, -0x1.f61881cd73682p-4, 0x1.009890ae157f1p-4, -0x1.eb58abeb75e19p-6,
        0x1.bc497afc1ebfdp-7, -0x1.7d67afabc50f1p-8
    },
    {
        0x1.6p-2, 0x1.693716c1c115fp-1, -0x1.921a4d906e547p-57, -0x1.49650a631eae9p-1, 0x1.eff8b65f5d13bp-2,
        -0x1.4588640e4e3ebp-2, 0x1.8011d3fa7dd8ap-3, -0x1.9f3bb8fedeea5p-4, 0x1.a0ef68de413a3p-5, -0x1.88a7810177dc1p-6,
        0x1.5d97f4b686485p-7, -0x1.27c33579c1bedp-8
    },
    {
        0x1.ap-2, 0x1.558ef312ebe87p-1, -0x1.cc71b22f56105p-55, -0x1.2c36c488f3c0dp-1, 0x1.b731667691c4p-2,
        -0x1.19564fa128312p-2, 0x1.44e6561d22642p-3, -0x1.588c09d208fc3p-4, 0x1.53e283ecd4f2dp-5, -0x1.3addbd0369cd3p-6,
        0x1.140a21151a6b7p-7, -0x1.cc4f537eb0f35p-9
    },
    {
        0x1.ep-2, 0x1.439ea3683d4ccp-1, -0x1.6fd70ed878623p-57, -0x1.125630d699f5bp-1, 0x1.860c79074a431p-2,
        -0x1.e7c8b697b6cfbp-3, 0x1.13b96e3bc24fap-3, -0x1.1ed4a25633fbbp-4, 0x1.15ff745fcfbb4p-5, -0x1.faaf71c685662p-7,
        0x1.b569ecf889c6bp-8, -0x1.67702a98834b4p-9
    },
    {
        0x1.1p-1, 0x1.3334ea3613dep-1, -0x1.9d73e8ccd9c38p-55, -0x1.f6a5625dbca39p-2, 0x1.5b61f82a5b85p-2,
        -0x1.a821c8b450066p-3, 0x1.d571fdb4f72edp-4, -0x1.df18cee6daf13p-5, 0x1.c83f31ccb88acp-6, -0x1.990928be2f648p-7,
        0x1.5bbade96c4a0bp-8, -0x1.19a0052f81521p-9
    },
    {
        0x1.3p-1, 0x1.242708751d9a7p-1, -0x1.9d14579167a98p-56, -0x1.cd991ffa808c8p-2, 0x1.363b25ed7ee16p-2,
        -0x1.71dd5747519e2p-3, 0x1.90dae008ad905p-4, -0x1.9160946e0a3ap-5, 0x1.779843d873583p-6, -0x1.4b486c376474bp-7,
        0x1.15593626f931fp-8, -0x1.baca6684c11cfp-10
    },
    {
        0x1.5p-1, 0x1.164fc6284ab1ep-1, 0x1.e851ef469240dp-56, -0x1.a8e46be6e2c85p-2, 0x1.15c9a58110904p-2,
        -0x1.43757462ea8cbp-3, 0x1.574e36a13da2p-4, -0x1.514c7723417b3p-5, 0x1.362c28ecde585p-6, -0x1.0d2b651394b0bp-7,
        0x1.bbdcfdeaf9a0cp-9, -0x1.5d3d178761c61p-10
    },
    {
        0x1.7p-1, 0x1.098ea367ecbccp-1, 0x1.4da8dc5d59b31p-55, -0x1.87fbbe45de3c9p-2, 0x1.f2c0ac1b437bfp-3,
        -0x1.1ba8ab3ac2a54p-3, 0x1.26df71090c99cp-4, -0x1.1c4d642c0bce9p-5, 0x1.00ef8080d0cbdp-6, -0x1.b6c79488d2802p-8,
        0x1.644f65e81139dp-9, -0x1.14580c3bc2108p-10
    },
    {
        0x1.9p-1, 0x1.fb8e558b14d9p-2, 0x1.012bddb544c5bp-56, -0x1.6a676e6756483p-2, 0x1.c0db0e94b2e13p-3,
        -0x1.f2da4c8e0115cp-4, 0x1.fbfb915a7cc52p-5, -0x1.e0acd93de79efp-6, 0x1.aaf5649dabe31p-7, -0x1.66bc8e1808c74p-8,
        0x1.1eece36c749f4p-9, -0x1.b6b89cbfa374fp-11
    },
    {
        0x1.bp-1, 0x1.e5c0be6e7d145p-2, -0x1.04cd574f0a1dbp-56, -0x1.4fc092b633c9p-2, 0x1.94ec854982c55p-3,
        -0x1.b7ccc69dd6f9fp-4, 0x1.b6c442fdde541p-5, -0x1.97832a2ad3171p-6, 0x1.63cbe5db2dbdbp-7, -0x1.262f04787c89fp-8,
        0x1.cf87a2bf6d6cbp-10, -0x1.5d58880579b13p-11
    },
    {
        0x1.dp-1, 0x1.d188819e7fef8p-2, -0x1.84465d02a9addp-57, -0x1.37ae69215ef93p-2, 0x1.6e24e4b083bb4p-3,
        -0x1.84b9d95908c0dp-4, 0x1.7c015c685c65p-5, -0x1.5a752bf606e79p-6, 0x1.295b0521ebbcap-7, -0x1.e3ed8a866e778p-9,
        0x1.778d89a9424fdp-10, -0x1.1708eecf9db8ap-11
    },
    {
        0x1.fp-1, 0x1.bebec8c623082p-2, -0x1.2b139f2b08c7fp-59, -0x1.21e42f10c2fb8p-2, 0x1.4bd3765bcc48ep-3,
        -0x1.586f59f62015ep-4, 0x1.49fb0d912d54cp-5, -0x1.275c656c84028p-6, 0x1.f270ca7e7d3f4p-8, -0x1.8f302cb174e0ep-9,
        0x1.312e1066bb52fp-10, -0x1.bf19c0636afeep-12
    },
    {
        0x1.1p0, 0x1.a4f550c5f1a99p-2, -0x1.acba9d8e63179p-58, -0x1.04ec886c0552fp-2, 0x1.1f73ffa657fd6p-3,
        -0x1.20926c49bc26ap-4, 0x1.0c4c6c3f05f4p-5, -0x1.d352a2835cc3bp-7, 0x1.807133a8bd845p-8, -0x1.2cabe8f0554b9p-9,
        0x1.c1f6ea25d945ap-11, -0x1.42b30c814d2d6p-12
    },
    {
        0x1.3p0, 0x1.8674923c605e1p-2, 0x1.c40bf6b037ad5p-56, -0x1.c841f18283f7ap-3, 0x1.de35ab5b88056p-4,
        -0x1.cb858a0b1dcc4p-5, 0x1.9abcc2cab9d1ap-6, -0x1.5908bd6c7b784p-7, 0x1.127f6415b2375p-8,
        -0x1.a01dd554eebaap-10, 0x1.2e45919d8fdb3p-11, -0x1.a58eb18569335p-13
    },
    {
        0x1.5p0, 0x1.6bb376a9390cdp-2, 0x1.92c20770147bap-56, -0x1.917d7928e2332p-3, 0x1.90e47c999268bp-4,
        -0x1.711413b59aedfp-5, 0x1.3d5e9f5557bc4p-6, -0x1.014991d6e2644p-7, 0x1.8c10dd3862fd9p-9,
        -0x1.230926763068cp-10, 0x1.9a9792977cdafp-12, -0x1.16744bd6bc9fap-13
    },
    {
        0x1.7p0, 0x1.5416a05961e1cp-2, -0x1.157ba3d57129bp-58, -0x1.63698e1f5ae48p-3, 0x1.528b08cb62333p-4,
        -0x1.2ae454cdcb75dp-5, 0x1.eedbaf5e98e7dp-7, -0x1.835e05b4135c3p-8, 0x1.20957198a90c4p-9, -0x1.9b4f01ac6b5dp-11,
        0x1.19d4268e99495p-12, -0x1.73dd199fda441p-14
    },
    {
        0x1.9p0, 0x1.3f20d017f353p-2, 0x1.6ae8fedf937c6p-57, -0x1.3c5e938b9cefbp-3, 0x1.1fdbb34b82dd1p-4,
        -0x1.e7e4fd2df9034p-6, 0x1.85190196b005ep-7, -0x1.2642531b082bfp-8, 0x1.a88dcc7426a82p-10,
        -0x1.2586a38d0430ep-11, 0x1.86da947eddcafp-13, -0x1.f5d3de2702166p-15
    },
    {
        0x1.bp0, 0x1.2c6c3d2ac6111p-2, 0x1.cf6c18f4c8944p-57, -0x1.1b110b4094c34p-3, 0x1.ecaedd6244601p-5,
        -0x1.9126c9e5ff85cp-6, 0x1.346c4610ba5bep-7, -0x1.c2f162810d656p-9, 0x1.3b267a4934e9dp-10,
        -0x1.a6efb8a77757dp-12, 0x1.11b35ad5c0b6bp-13, -0x1.560aa78d491fp-15
    },
    {
        0x1.dp0, 0x1.1ba58e2518db3p-2, -0x1.3004f1a666e01p-61, -0x1.fcf6c328b302ep-4, 0x1.a82dedb53ded7p-5,
        -0x1.4c2309f687ae4p-6, 0x1.ecb8b2b7b8493p-8, -0x1.5c644ff1e3f48p-9, 0x1.d7fa11e477cd8p-11,
        -0x1.337da5d11c636p-12, 0x1.82f72ab04d7a3p-14, -0x1.d6d478c036dabp-16
    },
    {
        0x1.fp0, 0x1.0c8803dfa92b2p-2, 0x1.6c2d1b199d75fp-56, -0x1.cb9b1437dd505p-4, 0x1.6f4730a4cfc0fp-5,
        -0x1.14d04d95e01f6p-6, 0x1.8c7595eec3fb6p-8, -0x1.0f4ab647ce945p-9, 0x1.64633280901d2p-11,
        -0x1.c30c159b65a3p-13, 0x1.140d75d9a8386p-14, -0x1.471dad97d0157p-16
    },
    {
        0x1.08p1, 0x1.fdb50ebdc92cep-3, 0x1.7eb0b56c31c13p-59, -0x1.a0c196a4dfbadp-4, 0x1.3fb5ad8f09d03p-5,
        -0x1.d04be8dc9de51p-7, 0x1.413a25f553cf9p-8, -0x1.a9b3057fc555dp-10, 0x1.0f44e3eee06d3p-11,
        -0x1.4d9b509dca7e7p-13, 0x1.8d539859f0409p-15, -0x1.caad9adea3b1ap-17
    },
    {
        0x1.18p1, 0x1.e4dac2d95830ep-3, 0x1.bd8a2b24b53cp-58, -0x1.7b5d2754d7c15p-4, 0x1.17b37f5230d56p-5,
        -0x1.87af15ba61d09p-7, 0x1.05fefdc13002ap-8, -0x1.506700975cc88p-10, 0x1.a0238191d88cap-12,
        -0x1.f17e02e98409ap-14, 0x1.205ca367d4c48p-15, -0x1.446705d0c3648p-17
    },
    {
        0x1.28p1, 0x1.ce30e45ab6494p-3, 0x1.c4744e7aaf699p-57, -0x1.5a930ffb85474p-4, 0x1.ebb6ceff21766p-6,
        -0x1.4c4757001fa12p-7, 0x1.ae11499c23cabp-9, -0x1.0baab4a00954ep-10, 0x1.418a687a83603p-12,
        -0x1.75d55e0d5244cp-14, 0x1.a5f967fe0514p-16, -0x1.cec2737c05f4ap-18
    },
    {
        0x1.38p1, 0x1.b9739404354ecp-3, 0x1.6bf0a1327e027p-57, -0x1.3db06d1993ad1p-4, 0x1.b22478684a9e8p-6,
        -0x1.1b6113e021157p-7, 0x1.6318a0bcab0b2p-9, -0x1.acc072bb582adp-11, 0x1.f46733cb655b3p-13,
        -0x1.1b0384580db76p-14, 0x1.372c01aaab221p-16, -0x1.4cc2c359795d6p-18
    },
    {
        0x1.48p1, 0x1.a66919f10d593p-3, -0x1.e70e3b80efe34p-57, -0x1.2422065bd29b3p-4, 0x1.80ec0e5b3c121p-6,
        -0x1.e5c88c64014ep-8, 0x1.26de51acc4e45p-9, -0x1.598bd8c8fd6ebp-11, 0x1.8803e00ede007p-13,
        -0x1.af98742f1f848p-15, 0x1.ce6581a481eb6p-17, -0x1.e255d49ec9911p-19
    },
    {
        0x1.58p1, 0x1.94e01f8c78672p-3, -0x1.c42c9f58e471bp-57, -0x1.0d6dfd1c8d18cp-4, 0x1.56a29b70d66e3p-6,
        -0x1.a25d31dd359a9p-8, 0x1.ec5fef81d57d6p-10, -0x1.1828c306b6c68p-11, 0x1.35186b84c58dcp-13,
        -0x1.4b5cffe71dbe2p-15, 0x1.5a0e6c491bacdp-17, -0x1.603aa7ba2924bp-19
    },
    {
        0x1.68p1, 0x1.84ae4301fe0b3p-3, -0x1.009261f1ad24dp-60, -0x1.f25dbcd862de7p-5, 0x1.3222d1cec435fp-6,
        -0x1.69eec99dfa617p-8, 0x1.9d37605d99d8ep-10, -0x1.c8e5724e6d5f4p-12, 0x1.ea759101058f8p-14,
        -0x1.00189be5dc69ap-15, 0x1.04cd36f126fb9p-17, -0x1.031aae4650e74p-19
    },
    {
        0x1.78p1, 0x1.75aef0b5da0b6p-3, -0x1.fb56874b78be8p-57, -0x1.ce1f87d3b2cf9p-5, 0x1.127e47b315d74p-6,
        -0x1.3a75a2c38e90ep-8, 0x1.5c7f215bdaedp-10, -0x1.769b5b4ddedefp-12, 0x1.877033dc84308p-14,
        -0x1.8e5fc0a1fdb64p-16, 0x1.8bc06e2a07158p-18, -0x1.7fe59fc4dc1fep-20
    },
    {
        0x1.9p1, 0x1.612a8125451bdp-3, 0x1.760e144c78de2p-57, -0x1.9e8803e177224p-5, 0x1.d503e1d200648p-7,
        -0x1.009a927223848p-8, 0x1.1049740169541p-10, -0x1.18d4654b8bb1dp-12, 0x1.1a12a591eff5dp-14,
        -0x1.146336bdaad35p-16, 0x1.09229ff5a0efbp-18, -0x1.f0a1e2c70ab9ep-21
    },
    {
        0x1.bp1, 0x1.48f8f10299b71p-3, 0x1.82642b757e422p-59, -0x1.696d353f008b5p-5, 0x1.804cc15714004p-7,
        -0x1.8c84c13afb6e5p-9, 0x1.8de5f26d85f35p-11, -0x1.85118471a4704p-13, 0x1.7350c1b1c5027p-15,
        -0x1.5a6113cf19c1ep-17, 0x1.3cd68c18a3af9p-19, -0x1.1b7334eba5608p-21
    },
    {
        0x1.dp1, 0x1.33cb19179d7f6p-3, -0x1.6f227a366d717p-66, -0x1.3dacc8d85f6c4p-5, 0x1.3e68313870468p-7,
        -0x1.36992d37bbe87p-9, 0x1.276b01f121e8cp-11, -0x1.1267afc6edf06p-13, 0x1.f28af635e644ep-16,
        -0x1.bb73861e767bep-18, 0x1.8356d55a73f5bp-20, -0x1.4b6d8c7193b1bp-22
    },
    {
        0x1.fp1, 0x1.211c625924e34p-3, -0x1.cbf0a667eebdp-57, -0x1.193eb7b9bf564p-5, 0x1.0a7a05d33872bp-7,
        -0x1.ecb581c2b7dccp-10, 0x1.bd21af9067eccp-12, -0x1.898597a084dp-14, 0x1.54d6add22b212p-16,
        -0x1.2186f3fb5a40ep-18, 0x1.e3a6c7799588dp-21, -0x1.8c4f77437b59dp-23
    },
    {
        0x1.08p2, 0x1.10845e1dcb19ap-3, 0x1.37b1c29a854f4p-58, -0x1.f53cfd5c11186p-6, 0x1.c21d6f4a49188p-8,
        -0x1.8b46c64f91d87p-10, 0x1.53e39642f93c1p-12, -0x1.1e807be5af6a7p-14, 0x1.d9f62bb925087p-17,
        -0x1.810da00542ec2p-19, 0x1.33f53ec3ad455p-21, -0x1.e3e8cbe3bf362p-24
    },
    {
        0x1.18p2, 0x1.01afcc22e71b8p-3, 0x1.02f7327329788p-59, -0x1.c14b6f7f3c2fp-6, 0x1.7f51652a46342p-8,
        -0x1.406f090aa3f7ap-10, 0x1.06bf9a35c5701p-12, -0x1.a712d1a27e659p-15, 0x1.4eb896c323d08p-17,
        -0x1.0471969336d14p-19, 0x1.8f6e88bd43d8cp-22, -0x1.2d4325057c30cp-24
    },
    {
        0x1.28p2, 0x1.e8b725e90fb8dp-4, 0x1.6b3d816a56f8dp-58, -0x1.94e4c65b27fd6p-6, 0x1.48ea08fa97ba3p-8,
        -0x1.0641d50f05bd8p-10, 0x1.9adeaa14665b6p-13, -0x1.3c74896397ca3p-15, 0x1.dfa9ba6a902d8p-18,
        -0x1.65f10961b0ccp-20, 0x1.078157ca1720fp-22, -0x1.7e04fc482abbbp-25
    },
    {
        0x1.38p2, 0x1.d0a2236d493eap-4, -0x1.a1c7be9b9b57ap-59, -0x1.6ea9db64452a6p-6, 0x1.1c3200b14f2cfp-8,
        -0x1.b1138bae63673p-11, 0x1.44a179312de16p-13, -0x1.df2332f552ea9p-16, 0x1.5c558b3eac858p-18,
        -0x1.f33ee449fe3c2p-21, 0x1.6143a01fdf056p-23, -0x1.ecc6376f3127dp-26
    },
    {
        0x1.48p2, 0x1.bac6ca42e1bfbp-4, 0x1.4170d0fcbf316p-59, -0x1.4d86dc544600bp-6, 0x1.ee3ffedd01d78p-9,
        -0x1.687d168ebc109p-11, 0x1.02fdcfb15aa1p-13, -0x1.6ecb6c32d0c07p-16, 0x1.00253cb84e99ap-18,
        -0x1.60fcfd48ff50bp-21, 0x1.e0b86e8b477ep-24, -0x1.42f30f21edb25p-26
    },
    {
        0x1.58p2, 0x1.a6dab49575b6dp-4, 0x1.cc98232fe1ab2p-62, -0x1.30a0ebefa7ff4p-6, 0x1.b04ef16d7ef8p-9,
        -0x1.2e52cf81e3f2dp-11, 0x1.a0faa96fb5e5cp-14, -0x1.1bb8488eb426dp-16, 0x1.7d204b463c739p-19,
        -0x1.f99c7d40d9cbdp-22, 0x1.4baf1b21e6b57p-24, -0x1.adb5735b6fd2fp-27
    },
    {
        0x1.68p2, 0x1.949fbeb63d761p-4, 0x1.e93c4caa61333p-59, -0x1.1748bb019ff2dp-6, 0x1.7c2ef77e9113cp-9,
        -0x1.fe9e2a1afd58fp-12, 0x1.527c1e39b4ffdp-14, -0x1.bb2e61502d7d6p-17, 0x1.1ea5626f804adp-19,
        -0x1.6e7de6cd1845ep-22, 0x1.cfbdb423619e8p-25, -0x1.21f0fddaf2ec5p-27
    },
    {
        0x1.78p2, 0x1.83e1a154593d6p-4, -0x1.936d2bca16e81p-58, -0x1.00f0a28e0b70dp-6, 0x1.500652770df48p-9,
        -0x1.b1ffaa6f881dep-12, 0x1.14e914d28e217p-14, -0x1.5d44315418768p-17, 0x1.b39559f9b8dc1p-20,
        -0x1.0ca905e9a0e9dp-22, 0x1.4832c9c4ea884p-25, -0x1.8c7e6be227243p-28
    },
    {
        0x1.88p2, 0x1.747414effdaep-4, -0x1.9c215bfe2e44bp-59, -0x1.da4a7e35becddp-7, 0x1.2a6189daf30d6p-9,
        -0x1.7318428a380b1p-12, 0x1.c85edd24428b4p-15, -0x1.1594dc887116cp-17, 0x1.4e1f1f629c6ep-20,
        -0x1.8e1290dedd739p-23, 0x1.d5f1ac9f8443p-26, -0x1.1282188eba31dp-28
    },
    {
        0x1.98p2, 0x1.66315c5706f0bp-4, 0x1.e94e21e0adbb9p-59, -0x1.b70fb7681780ep-7, 0x1.0a1ac60286bf1p-9,
        -0x1.3f1651ac0ffcp-12, 0x1.7a9f9dad6a4cbp-15, -0x1.bcb667005c3dbp-18, 0x1.029822b3f7e85p-20,
        -0x1.29da9ddb513aep-23, 0x1.542211b45e04ap-26, -0x1.809ae07855e2p-29
    },
    {
        0x1.a8p2, 0x1.58f91d4c57ccap-4, -0x1.3659d5b83c64ep-58, -0x1.9794607880b05p-7, 0x1.dc8f5a234ea5ep-10,
        -0x1.13ce26f04be11p-12, 0x1.3c1e9a552c6b4p-15, -0x1.66e18362e34e8p-18, 0x1.93a770e405c64p-21,
        -0x1.c1eaaac63c1e4p-24, 0x1.f16e13502f89dp-27, -0x1.107003e6a2328p-29
    },
    {
        0x1.b8p2, 0x1.4caf750fa3231p-4, -0x1.4ed98b28cb2bfp-61, -0x1.7b56355cc257fp-7, 0x1.ac57ccfb07dddp-10,
        -0x1.df2033814382ep-13, 0x1.09820b7f319c7p-15, -0x1.23a26323c2e36p-18, 0x1.3d8a82dd9fbdfp-21,
        -0x1.56cf62e8fb8e6p-24, 0x1.6f44beb27b7a2p-27, -0x1.8609390bb7561p-30
    },
    {
        0x1.dp2, 0x1.3bcc59a28358cp-4, 0x1.6728f016a4c73p-59, -0x1.5621e47157306p-7, 0x1.6f68a6f3150adp-10,
        -0x1.872cdb81fd8bcp-13, 0x1.9d0000aecd36cp-16, -0x1.b07c4a8792bfdp-19, 0x1.c14780ed6d621p-22,
        -0x1.cf16a562319b2p-25, 0x1.dade06e1f0a8ap-28, -0x1.e234e8cffd2c2p-31
    },
    {
        0x1.fp2, 0x1.27c2b4d2f8988p-4, -0x1.89bbf786e67bbp-59, -0x1.2c6aebe4718c2p-7, 0x1.2ec8136aa618bp-10,
        -0x1.2ed983856c964p-13, 0x1.2cab802fa1b3dp-16, -0x1.285655d6cb493p-19, 0x1.21fcf41f0949p-22,
        -0x1.19cbdfc245969p-25, 0x1.1092108bc35b2p-28, -0x1.0558695699fecp-31
    },
    {
        0x1.08p3, 0x1.1618fbc75f8ap-4, 0x1.9f09a1c522eb1p-60, -0x1.09d8af47983fcp-7, 0x1.f8c382c544081p-11,
        -0x1.dbf548a05f3d8p-14, 0x1.bdd1fbff6e7ecp-17, -0x1.9edfad3ebdfaep-20, 0x1.7f9bf8a2ca7e2p-23,
        -0x1.607a1a3bf095cp-26, 0x1.42853aeebaca5p-29, -0x1.24c9dd56b7dafp-32
    },
    {
        0x1.18p3, 0x1.0669c59166c17p-4, 0x1.adfc4d46003ffp-59, -0x1.d9c4ed21533bp-8, 0x1.a909f1969e8bbp-11,
        -0x1.7b022618f5b02p-14, 0x1.4ff2fd6bfc1dp-17, -0x1.2809b1498322dp-20, 0x1.035d8c9afd6b2p-23,
        -0x1.c3e5d1555847p-27, 0x1.882ffa04595a4p-30, -0x1.51f1975dc917p-33
    },
    {
        0x1.28p3, 0x1.f0c9d48847e15p-5, 0x1.61d20a0d30bd1p-59, -0x1.a8c62560288bbp-8, 0x1.692e54463fecfp-11,
        -0x1.316dfd27c4076p-14, 0x1.00e4f209a66bcp-17, -0x1.addaa9295f863p-21, 0x1.65c14963c9225p-24,
        -0x1.28381704f1401p-27, 0x1.e8d9492615879p-31, -0x1.90c347b24228dp-34
    },
    {
        0x1.38p3, 0x1.d7947dc6e8dafp-5, -0x1.21983bb815a8cp-60, -0x1.7ef85ef3d1684p-8, 0x1.3572837068f38p-11,
        -0x1.f19a40f07de5ap-15, 0x1.8e20f77835412p-18, -0x1.3d01ef251c216p-21, 0x1.f66f3c0d4422cp-25,
        -0x1.8c4c4c9dd86c7p-28, 0x1.3799db9f985d5p-31, -0x1.e71e94fa0d303p-35
    },
    {
        0x1.48p3, 0x1.c0cb9b2935b92p-5, -0x1.d2f8f218ecb89p-59, -0x1.5b059dc34c3d5p-8, 0x1.0b1a41bf02a1dp-11,
        -0x1.99532cdaf373dp-15, 0x1.383e40b059ca1p-18, -0x1.da48652ea8bacp-22, 0x1.66a5406da744ap-25,
        -0x1.0e0ab9b18842ep-28, 0x1.957c72a51bc61p-32, -0x1.2ec9b53a780fcp-35
    },
    {
        0x1.58p3, 0x1.ac1a2600f9687p-5, -0x1.18accfe9504c7p-59, -0x1.3be37b8224a8dp-8, 0x1.d03c050c12c7ap-12,
        -0x1.53b80a02ad758p-15, 0x1.ef2de61f40f62p-19, -0x1.6770ae0d284f6p-22, 0x1.03dfa67e16f68p-25,
        -0x1.764cc295098e5p-29, 0x1.0cd79cb2dfd49p-32, -0x1.80471e1a8ed2ep-36
    },
    {
        0x1.68p3, 0x1.9939e4f6ef547p-5, 0x1.9e9fef146eb8ap-64, -0x1.20c006896f723p-8, 0x1.95ede2d54de71p-12,
        -0x1.1c4103d18e146p-15, 0x1.8c9d5da80a6d3p-19, -0x1.13ac64c14fe1ep-22, 0x1.7dd29dd27a465p-26,
        -0x1.07779fbe0c4b7p-29, 0x1.6ab6454005037p-33, -0x1.f10ef2293d98p-37
    },
    {
        0x1.78p3, 0x1.87f0587e0b6b4p-5, -0x1.ee73c865d64b8p-62, -0x1.08f40799540edp-8, 0x1.64f6aa6bfabcbp-12,
        -0x1.df41a15a9cd95p-16, 0x1.409dfb5c369e9p-19, -0x1.ab84d588936e9p-23, 0x1.1c12655aab1c4p-26,
        -0x1.7840cc119a83cp-30, 0x1.f1396d5710204p-34, -0x1.4728386132219p-37
    },
    {
        0x1.88p3, 0x1.780c6345b4de9p-5, -0x1.3cd90b67fd257p-59, -0x1.e7f2059678dd5p-9, 0x1.3b8b7f402a8dep-12,
        -0x1.96ce3ebd3b961p-16, 0x1.0565cdd2715f3p-19, -0x1.4edf1d76e768p-23, 0x1.aba90d136859cp-27,
        -0x1.103c9364c0c51p-30, 0x1.59df5d5af732p-34, -0x1.b5b4beb71ef1bp-38
    },
    {
        0x1.98p3, 0x1.69647c7510299p-5, -0x1.ee5dac1141eafp-59, -0x1.c2c3adc1ab71p-9, 0x1.1846ff5dc5bb4p-12,
        -0x1.5b82416819e98p-16, 0x1.ad999f68d0c1fp-20, -0x1.08c479c29a38fp-23, 0x1.456a33a22320fp-27,
        -0x1.8ecebc0e61d89p-31, 0x1.e7cde1b4f7a05p-35, -0x1.293ef51e24e1ep-38
    },
    {
        0x1.a8p3, 0x1.5bd54832ed9c3p-5, -0x1.08b3ce3fcf222p-59, -0x1.a1aa73f9e2f99p-9, 0x1.f42027fda58p-13,
        -0x1.2a9b9e9ca3a3cp-16, 0x1.639a528dcccdcp-20, -0x1.a6541958a723bp-24, 0x1.f439d2a1cbd91p-28,
        -0x1.2774910cc04c8p-31, 0x1.5c62fb41ae4c6p-35, -0x1.9968ee1199331p-39
    },
    {
        0x1.b8p3, 0x1.4f407d0aad072p-5, 0x1.4ca5e59324ae5p-59, -0x1.84131dfa095a4p-9, 0x1.c00f47ccfd8fap-13,
        -0x1.01fec1f526251p-16, 0x1.285a9be91f606p-20, -0x1.538e639121512p-24, 0x1.8414c2a258903p-28,
        -0x1.ba6fd7e2b6e5ap-32, 0x1.f78de8c4065f4p-36, -0x1.1da6d730a3f75p-39
    },
    {
        0x1.c8p3, 0x1.438c03b54316dp-5, 0x1.d861ef7dbd864p-60, -0x1.69836d73ecf92p-9, 0x1.92f63a0408f01p-13,
        -0x1.c016858e02011p-17, 0x1.f11588c7be745p-21, -0x1.13118c0d7d986p-24, 0x1.2fb68987d9967p-28,
        -0x1.4e8f77b2d14b6p-32, 0x1.6ff570639576bp-36, -0x1.937eba22df668p-40
    },
    {
        0x1.d8p3, 0x1.38a143b28d6d4p-5, -0x1.5c14d6fc6191dp-60, -0x1.5195371eac394p-9, 0x1.6bb4e246a87c1p-13,
        -0x1.86f9ae5b446b5p-17, 0x1.a35ac542d238bp-21, -0x1.c0cd00b5d1c81p-25, 0x1.df42d935d3a4p-29,
        -0x1.feac72d681c87p-33, 0x1.0fab6ae137ee7p-36, -0x1.203f151e0f177p-40
    },
    {
        0x1.fp3, 0x1.29910a1ff7b0ep-5, -0x1.35cf578f6f796p-59, -0x1.31e66a6386f9fp-9, 0x1.39d30f8cee99ep-13,
        -0x1.414ce1ffcc5bdp-17, 0x1.484a4e949bef1p-21, -0x1.4ec25b414225ap-25, 0x1.54ac898cb3da2p-29,
        -0x1.5a019f58aaa62p-33, 0x1.5f9aecea0cae8p-37, -0x1.63ca7dad4262dp-41
    },
    {
        0x1.08p4, 0x1.17999659ab8b6p-5, -0x1.2a9b1ab87db0dp-59, -0x1.0e23ef619e36p-9, 0x1.04877d006394dp-13,
        -0x1.f59df6f497e2dp-18, 0x1.e209aa49a6612p-22, -0x1.ce6625531aeap-26, 0x1.bac6680f4b4ddp-30,
        -0x1.a73d071a22295p-34, 0x1.94bfecbd2dcaep-38, -0x1.819f8136e193dp-42
    },
    {
        0x1.18p4, 0x1.07ad15536656dp-5, -0x1.e9734ac22362bp-61, -0x1.e096c3c71f7fp-10, 0x1.b54485023aa36p-14,
        -0x1.8d36ddca2f90dp-18, 0x1.6841368da1b75p-22, -0x1.463740c268b08p-26, 0x1.26ed238c6fed5p-30,
        -0x1.0a3820e634472p-34, 0x1.e0cf28a753aadp-39, -0x1.b0bce5aa4c292p-43
    },
    {
        0x1.28p4, 0x1.f2ee84766fae7p-6, 0x1.75a418d470581p-60, -0x1.ae41bec497d41p-10, 0x1.727fe320213fbp-14,
        -0x1.3e956fa0e431cp-18, 0x1.118d070df995ap-22, -0x1.d5192e99f8e38p-27, 0x1.91a54bfc5b647p-31,
        -0x1.57683029af8cdp-35, 0x1.25b86218c4f3p-39, -0x1.f4f073ff3c5e3p-44
    },
    {
        0x1.38p4, 0x1.d96a02b92c7d2p-6, 0x1.ac1e93fc9e7a2p-65, -0x1.836d6d4a6a46p-10, 0x1.3ca5867af7cfdp-14,
        -0x1.02764308264d4p-18, 0x1.a564c90a9319ap-23, -0x1.57139ee3679fcp-27, 0x1.16f51199e6b6dp-31,
        -0x1.c510a6cf2e428p-36, 0x1.700a82bf29efap-40, -0x1.2a29eaa94a0b8p-44
    },
    {
        0x1.48p4, 0x1.c260728555995p-6, 0x1.a25ab9f5e2f62p-60, -0x1.5eae9afb8256bp-10, 0x1.10bbf3169a392p-14,
        -0x1.a7ba08bba1869p-19, 0x1.48c57e6795b31p-23, -0x1.fd98a003b2dcep-28, 0x1.8a7a85f633565p-32,
        -0x1.31034f7a47d15p-36, 0x1.d7d0cd3982dp-41, -0x1.6c05c46d4dee2p-45
    },
    {
        0x1.58p4, 0x1.ad79a3c2ddabfp-6, -0x1.d389f7b44a23ep-61, -0x1.3eebf4f31d394p-10, 0x1.d925385ccdeefp-15,
        -0x1.5e997103cd494p-19, 0x1.03843fd98a59fp-23, -0x1.7fc8f9bcedea7p-28, 0x1.1b7aa929c5858p-32,
        -0x1.a2563fc888baep-37, 0x1.34c22709379fep-41, -0x1.c6beb74310fe2p-46
    },
    {
        0x1.68p4, 0x1.9a6cfe4b0d001p-6, -0x1.dd3bce733caaap-64, -0x1.2348dd924b18cp-10, 0x1.9d0d6aa6ca81cp-15,
        -0x1.2493715b9a5eep-19, 0x1.9e133dfa08a02p-24, -0x1.24bb0697498fcp-28, 0x1.9d7dc079d488p-33,
        -0x1.23c0c906f1d93p-37, 0x1.9bd0925a077f2p-42, -0x1.220be41618908p-46
    },
    {
        0x1.78p4, 0x1.88fe35af1512bp-6, 0x1.0ce43acdc35d3p-61, -0x1.0b165e58f4594p-10, 0x1.6ab638dc5f2eap-15,
        -0x1.ec2192fbda5b7p-20, 0x1.4d90eb6b34d42p-24, -0x1.c3c75f2c66493p-29, 0x1.31aba68586124p-33,
        -0x1.9d4347e630dabp-38, 0x1.176d2b14bffc6p-42, -0x1.7927d3ec5b6dp-47
    },
    {
        0x1.88p4, 0x1.78faca60fd196p-6, -0x1.3f6fc3f498542p-60, -0x1.eb908f3f7b3b7p-11, 0x1.403968c57fb5ep-15,
        -0x1.a0de6c14e4953p-20, 0x1.0f1e0580f181cp-24, -0x1.605c86431f3c6p-29, 0x1.c99391e17cf8p-34,
        -0x1.28dc9bc9ac649p-38, 0x1.814526bdc60c6p-43, -0x1.f323ddc725f85p-48
    },
    {
        0x1.98p4, 0x1.6a382043f7ebdp-6, -0x1.b96908a3ed2d7p-65, -0x1.c5da7001373c4p-11, 0x1.1c1e05ffcfa36p-15,
        -0x1.63734205be7ccp-20, 0x1.bc5ac677ffe03p-25, -0x1.15897eb3245fbp-29, 0x1.5a6daaa408225p-34,
        -0x1.b017ff54c3975p-39, 0x1.0d85eb228ee1dp-43, -0x1.4fb25a9b76ed8p-48
    },
    {
        0x1.a8p4, 0x1.5c92036f02bcep-6, 0x1.614d3656cd848p-66, -0x1.a45161db933c4p-11, 0x1.fa7994b33bd5ap-16,
        -0x1.30ee4987938bap-20, 0x1.6eeaeaafab05ap-25, -0x1.b931e3a410019p-30, 0x1.09116debae994p-34,
        -0x1.3e47de401ae87p-39, 0x1.7e3e7368aaad9p-44, -0x1.ca6101704365dp-49
    },
    {
        0x1.b8p4, 0x1.4fe97f404ff9ap-6, -0x1.6a243c05e7735p-61, -0x1.865d4727e2705p-11, 0x1.c5586825846f9p-16,
        -0x1.071234db7fe29p-20, 0x1.311d4c40c545cp-25, -0x1.61a55322011c1p-30, 0x1.99a10e91bdde9p-35,
        -0x1.da2a83dde0d9ep-40, 0x1.127b1512c4067p-44, -0x1.3d56a165931f3p-49
    },
    {
        0x1.c8p4, 0x1.4423f3a6a5aefp-6, 0x1.1397d6a7d29ddp-60, -0x1.6b801df137fc3p-11, 0x1.9763ef3f497ccp-16,
        -0x1.c84cf79c17467p-21, 0x1.fec57089b399cp-26, -0x1.1db2b47eef1a9p-30, 0x1.3f6a00e522992p-35,
        -0x1.64e475d67d4c7p-40, 0x1.8ed466583118ep-45, -0x1.bd1edd3772c7bp-50
    },
    {
        0x1.d8p4, 0x1.392a59f145f6ap-6, -0x1.d02d7ae8d4dcbp-60, -0x1.5350cde9bbe25p-11, 0x1.6f70773307c97p-16,
        -0x1.8daabc81e11dbp-21, 0x1.ae22d698a4bc7p-26, -0x1.d0fde20cd7e6fp-31, 0x1.f662eb58b86cp-36,
        -0x1.0f3d8b017eb08p-40, 0x1.24edfbbf9d2bep-45, -0x1.3bf8eae665aa6p-50
    },
    {
        0x1.e8p4, 0x1.2ee8ae4b9240fp-6, 0x1.db4e02b0dece1p-61, -0x1.3d77211287468p-11, 0x1.4c8b17a546eb6p-16,
        -0x1.5c26c2a9d0034p-21, 0x1.6c4c36d967416p-26, -0x1.7cfd6ab2b6e28p-31, 0x1.8e3c301c82438p-36,
        -0x1.a00a40f78fb95p-41, 0x1.b2b311ac8adadp-46, -0x1.c5af0ebd55ebbp-51
    },
};

}  // namespace orvik::zym
