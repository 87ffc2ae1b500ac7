// Written by tools/approx from the rule in zym/kernels/bessel/tables.h; do not edit.
#include "zym/kernels/bessel/tables.h"

// clang-format off
namespace orvik::zym::bessel {

alignas(64) const double kY1Rows32[176][8] = {
    {
        -0x1.acac68481d45ep33, 0x1.c7761d8e4e908p28, -0x1.e16838b01fdd3p23, 0x1.ff78bf2c92501p18, -0x1.0fabc1e6b6903p14,
        0x1.203feab36435dp9, -0x1.3374a8120a19p4, 0x1.1p-5
    },
    {
        -0x1.8929665ef86a2p32, 0x1.d2dfcb7ba008bp27, -0x1.140c62752c671p23, 0x1.47c9eab3c32e6p18, -0x1.85292a63f3edbp13,
        0x1.cd5cdb8b7d82ap8, -0x1.1338f13c198eep4, 0x1.3p-5
    },
    {
        -0x1.85f3b7e69c6c9p31, 0x1.ffce0c5a8669bp26, -0x1.4eb85a68a28a8p22, 0x1.b74a20fa6ed6cp17, -0x1.2033fc0dc8855p13,
        0x1.79886caa9b3dp8, -0x1.f246a2b015858p3, 0x1.5p-5
    },
    {
        -0x1.9c518a6214312p30, 0x1.2859559a95a03p26, -0x1.a8c78634910e6p21, 0x1.3148e20d8714dp17, -0x1.b6b2d14aba86cp12,
        0x1.3a9c34049e405p8, -0x1.c7321f57dcc4p3, 0x1.7p-5
    },
    {
        -0x1.cbd14d4ef0917p29, 0x1.6739b1a039778p25, -0x1.17f5cbf658692p21, 0x1.b56505e48993fp16, -0x1.5593df4ddffap12,
        0x1.0a2e1296fe1edp8, -0x1.a305c767419cdp3, 0x1.9p-5
    },
    {
        -0x1.0c34969d06f35p29, 0x1.c49610212d361p24, -0x1.7d10f24e32174p20, 0x1.417cd92e315d7p16, -0x1.0f20ca07848bap12,
        0x1.c8392098c4714p7, -0x1.84388d106985ep3, 0x1.bp-5
    },
    {
        -0x1.45305b3b2553p28, 0x1.26b1cf4f28893p24, -0x1.0a938d4994bcbp20, 0x1.e31b1278328p15, -0x1.b593c511d722cp11,
        0x1.8b4b863c678b2p7, -0x1.69add28eec9f9p3, 0x1.dp-5
    },
    {
        -0x1.97ae27148dddfp27, 0x1.8aeda09e133bfp23, -0x1.7df75c2f23b43p19, 0x1.71f952edbdaf7p15, -0x1.66308f6f30ee8p11,
        0x1.59c7b1b3a434bp7, -0x1.52926efea3c78p3, 0x1.fp-5
    },
    {
        -0x1.aca65fef1d45ap26, 0x1.c76c81d8bf7a8p22, -0x1.e15745db0ceacp18, 0x1.ff54fb83d917bp14, -0x1.0f717a1d1ce13p11,
        0x1.1f408d1e3d942p7, -0x1.35067c10f63edp3, 0x1.1p-4
    },
    {
        -0x1.89227c5efbfb1p25, 0x1.d2d37cc835d7ep21, -0x1.14004042441a4p18, 0x1.47ad557cb429ap14, -0x1.84c0984d176bdp10,
        0x1.cb79b642a6767p6, -0x1.14e9d040bc294p3, 0x1.3p-4
    },
    {
        -0x1.85eb56bfde6f6p24, 0x1.ffbd901da249ep20, -0x1.4ea6640534a7bp17, 0x1.b71b6a5a34942p13, -0x1.1fd51a7f5716bp10,
        0x1.77be2b67fcd6fp6, -0x1.f5e330ae0e235p2, 0x1.5p-4
    },
    {
        -0x1.9c46e922919a9p23, 0x1.284de20f6cb98p20, -0x1.a8ac3295b9111p16, 0x1.312202cd6152fp13, -0x1.b60509221a7fep9,
        0x1.38e8a3a24b962p6, -0x1.cb06851da2065p2, 0x1.7p-4
    },
    {
        -0x1.cbc34b813bb77p22, 0x1.67294b298d899p19, -0x1.17e0887609914p16, 0x1.b523579c9b3dfp12, -0x1.54f37d3f311f2p9,
        0x1.088f5ed22b025p6, -0x1.a70f4cf8e983dp2, 0x1.9p-4
    },
    {
        -0x1.0c2b0eec7311bp22, 0x1.c47df6a2a6956p18, -0x1.7cef369a773cbp15, 0x1.4144a4cd21f36p12, -0x1.0e8bcc71f4eb4p9,
        0x1.c5225b8ca0ff5p5, -0x1.8874b03b2d04p2, 0x1.bp-4
    },
    {
        -0x1.452306bc07383p21, 0x1.269fb57230afcp18, -0x1.0a7859cb63a9p15, 0x1.e2b9d197a9223p11, -0x1.b47d64c36a785p8,
        0x1.8858bf55e92b9p5, -0x1.6e1a3ed53a44p2, 0x1.dp-4
    },
    {
        -0x1.979b0ea3611eep20, 0x1.8ad1e9a04d254p17, -0x1.7dcadcfc6ff3fp14, 0x1.71a460ba1ce94p11, -0x1.652b3a06beb3dp8,
        0x1.56f6a002a5bb4p5, -0x1.572cf732db571p2, 0x1.fp-4
    },
    {
        -0x1.ac8e44db094d2p19, 0x1.c74626c379917p16, -0x1.e113eb7a95648p13, 0x1.fec827d6b5306p10, -0x1.0e81e560089dfp8,
        0x1.1c9e610e8dde8p5, -0x1.39e26303c73c4p2, 0x1.1p-3
    },
    {
        -0x1.8906dd6361a2ap18, 0x1.d2a26177e800ap15, -0x1.13d01d667ba36p13, 0x1.473d05f7edb44p10, -0x1.831098e1d1458p7,
        0x1.c6a70a5bf7c21p4, -0x1.1a165fa02619bp2, 0x1.3p-3
    },
    {
        -0x1.85c9df7580fdap17, 0x1.ff7bd280be6ddp14, -0x1.4e5f44948539bp12, 0x1.b664392fb72e5p9, -0x1.1e4b2478b8c01p7,
        0x1.735294d71717bp4, -0x1.00680d1fb7c3p2, 0x1.5p-3
    },
    {
        -0x1.9c1c7857b7a76p16, 0x1.28203e83e1a4fp14, -0x1.a8403b1a7fd57p11, 0x1.3089d5d8e401bp9, -0x1.b32fba5dd6cf1p6,
        0x1.34db81c7909bdp4, -0x1.d67ae55b328efp1, 0x1.7p-3
    },
    {
        -0x1.cb8b63a1a0a87p15, 0x1.66e7f93515ec9p13, -0x1.178cb8ffabdffp11, 0x1.b422995ec395ep8, -0x1.5252988c216a5p6,
        0x1.04d98869a6756p4, -0x1.b2ffcb4533699p1, 0x1.9p-3
    },
    {
        -0x1.0c0508f10c2d3p15, 0x1.c41e0b893dd68p12, -0x1.7c6a9b5a811fap10, 0x1.40693438fdb62p8, -0x1.0c176931329ebp6,
        0x1.be593277e8d77p3, -0x1.94d6c6632811ap1, 0x1.bp-3
    },
    {
        -0x1.44eddc8fafa62p14, 0x1.2657b83326de6p12, -0x1.0a0dbbb1246ap10, 0x1.e13e6f51d377p7, -0x1.afe120b15ad86p5,
        0x1.8227c932e7fbep3, -0x1.7ae4193845a8cp1, 0x1.dp-3
    },
    {
        -0x1.974eedbd62505p13, 0x1.8a63c719d8e08p11, -0x1.7d1d01ed5a2d9p9, 0x1.70592925b58c8p7, -0x1.60d16d0f787a7p5,
        0x1.5154f2e07e65fp3, -0x1.64555b9d8586p1, 0x1.fp-3
    },
    {
        -0x1.ac2e3a2c0d86bp12, 0x1.c6adee1e824ccp10, -0x1.e00e272dfdf3ep8, 0x1.fca300e30232cp6, -0x1.0a7ce8905eef8p5,
        0x1.17c5573b1fd7p3, -0x1.4788683b1e56ap1, 0x1.1p-2
    },
    {
        -0x1.8898eb95c3676p11, 0x1.d1dfe01f9964p9, -0x1.13168b646e7e4p8, 0x1.4586499709696p6, -0x1.7bbeaa66ab095p4,
        0x1.bedf9773f0001p2, -0x1.2847f3c71b153p1, 0x1.3p-2
    },
    {
        -0x1.8544cbff9d991p10, 0x1.fe78027747631p8, -0x1.4d4fa38e33601p7, 0x1.b395c651f9d44p5, -0x1.178e0dbf45364p4,
        0x1.6d4c63e4f699bp2, -0x1.0f07dcd571bep1, 0x1.5p-2
    },
    {
        -0x1.9b73e34688287p9, 0x1.276c5399506f4p8, -0x1.a6a849cfb4e22p6, 0x1.2e3140c3c61e5p5, -0x1.a6abd08dfe845p3,
        0x1.3074bca09f55ap2, -0x1.f4610223a447ep0, 0x1.7p-2
    },
    {
        -0x1.caad920fa8753p8, 0x1.65e7317a3956ep7, -0x1.1653e248ac574p6, 0x1.b0244b83e0243p4, -0x1.469e643d726b8p3,
        0x1.01f5ebd88f29fp2, -0x1.d15a48f948947p0, 0x1.9p-2
    },
    {
        -0x1.0b6e5836bf391p8, 0x1.c2a62d598a179p6, -0x1.7a825e97b89c9p5, 0x1.3cf53f3196c04p4, -0x1.011561ffd02eap3,
        0x1.bb68369a84d24p1, -0x1.b376ca63fd9fbp0, 0x1.bp-2
    },
    {
        -0x1.441b6a6ea600ep7, 0x1.253ea1d6c3ff9p6, -0x1.088b2a27838a1p5, 0x1.db2ffe22eeb13p3, -0x1.9b135fe306c4dp2,
        0x1.81e37dab919e5p1, -0x1.999d93c36b224p0, 0x1.dp-2
    },
    {
        -0x1.9621f24f87e74p6, 0x1.88b77e27bd7e5p5, -0x1.7ab15628940cep4, 0x1.6af7f36e40c56p3, -0x1.4d158aacdd0aap2,
        0x1.5398eb04b0e23p1, -0x1.82feab23cce59p0, 0x1.fp-2
    },
    {
        -0x1.aab330ca1160dp5, 0x1.c4622bb8ec1ccp4, -0x1.dc83f0de1fa52p3, 0x1.f36ef1c1ea8dep2, -0x1.f04dca552572cp1,
        0x1.1d9a1d4785098p1, -0x1.65d008bf7d242p0, 0x1.1p-1
    },
    {
        -0x1.86e8000525e9bp4, 0x1.cef9c82f2d3ccp3, -0x1.10b0f9dc3e4ep3, 0x1.3dc895637f86ap2, -0x1.5a3b6acfd3078p1,
        0x1.d34c21dd77c52p0, -0x1.458dd64d3abb1p0, 0x1.3p-1
    },
    {
        -0x1.8339d7884a113p3, 0x1.faa813a8adc16p2, -0x1.49fd85a753f3fp2, 0x1.a61b1d05b8265p1, -0x1.f17de101bf7f8p0,
        0x1.89c13a7942d9ep0, -0x1.2ac5cdcf89a08p0, 0x1.5p-1
    },
    {
        -0x1.98de73c7a46c4p2, 0x1.24d61e9952bdbp2, -0x1.a1fbb2977ae02p1, 0x1.221ca2c02a547p1, -0x1.6dd4873741b08p0,
        0x1.544f863628f34p0, -0x1.13eb29592edccp0, 0x1.7p-1
    },
    {
        -0x1.c74829e81383p1, 0x1.624ee74f1737cp1, -0x1.130124ec8e2ap1, 0x1.99f5a8c2226a1p0, -0x1.121ca5e50ced5p0,
        0x1.2ca549221d6aep0, -0x1.ffe5856f033b2p-1, 0x1.9p-1
    },
    {
        -0x1.091ff2dda1b15p1, 0x1.bd91264304e68p0, -0x1.75c1c0b54a789p0, 0x1.282fe05b3f8aap0, -0x1.a131401c69688p-1,
        0x1.0eb2ac52d657ap0, -0x1.dc45d11631c36p-1, 0x1.bp-1
    },
    {
        -0x1.40e2a282ad18dp0, 0x1.219cfbe38d756p0, -0x1.052340b6fca21p0, 0x1.b3aa913788fc1p-1, -0x1.41b0b001a86bcp-1,
        0x1.ef8560c5c0b1bp-1, -0x1.bbee5e955e541p-1, 0x1.dp-1
    },
    {
        -0x1.91852251ba57cp-1, 0x1.8381295120c5p-1, -0x1.75cf762bac961p-1, 0x1.44e554e8ea4c3p-1, -0x1.f5ee5db6a04ap-2,
        0x1.cbf225c9f02d1p-1, -0x1.9e1e67092de92p-1, 0x1.fp-1
    },
    {
        -0x1.a4e05e9b76187p-2, 0x1.be1549ac1e42ap-2, -0x1.d696a4fbf1a2dp-2, 0x1.aa2b76965e49bp-2, -0x1.610b32fe06696p-2,
        0x1.a45bb28090724p-1, -0x1.74f6945153357p-1, 0x1.1p0
    },
    {
        -0x1.803ad2597765cp-3, 0x1.c90bcac28dd58p-3, -0x1.0d8d903494b86p-2, 0x1.ed6680a2db6e1p-3, -0x1.cbfcce51f454bp-3,
        0x1.809d76154923bp-1, -0x1.42cfd119b24cap-1, 0x1.3p0
    },
    {
        -0x1.7b2945babbb8ep-4, 0x1.f6a3cb2cbd077p-4, -0x1.46149f8d60ca9p-3, 0x1.1a626f3d4896cp-3, -0x1.3dd51803d109ap-3,
        0x1.68b7e27d9e15fp-1, -0x1.145210baf11adp-1, 0x1.5p0
    },
    {
        -0x1.8ec9fb77b4233p-5, 0x1.25a35f211d711p-4, -0x1.9b09c1981297bp-4, 0x1.3058ecab0af61p-4, -0x1.dc7367895883dp-4,
        0x1.579842968a4e6p-1, -0x1.d0b48611cee91p-2, 0x1.7p0
    },
    {
        -0x1.ba83f9ad7faddp-6, 0x1.69fb85152c76dp-5, -0x1.0a87b2d01dd01p-4, 0x1.13b80f7bbc7c4p-5, -0x1.8bc8b0dfb8396p-4,
        0x1.4a20cc66ec5bfp-1, -0x1.7c8ac2d80ef5fp-2, 0x1.9p0
    },
    {
        -0x1.012a704474f52p-6, 0x1.d492341a242a5p-6, -0x1.5eb637a1b40fdp-5, 0x1.d095a253bcf63p-8, -0x1.6de8e7ae96efp-4,
        0x1.3e5525a834094p-1, -0x1.2b80f32114331p-2, 0x1.bp0
    },
    {
        -0x1.379807279b9f8p-7, 0x1.3d46678cc8c81p-6, -0x1.cc358f6508778p-6, -0x1.54b3bb4f87028p-7,
        -0x1.7163c569fa8d3p-4, 0x1.32e9ce6d7c98dp-1, -0x1.bab0f046907d7p-3, 0x1.dp0
    },
    {
        -0x1.88922edddc488p-8, 0x1.bfe7896d5d575p-7, -0x1.258ef4fdf6257p-6, -0x1.6460ce5a208b2p-6,
        -0x1.8abab6676f70cp-4, 0x1.2704ed37f804fp-1, -0x1.242cc3fb9820dp-3, 0x1.fp0
    },
    {
        -0x1.9ac0efd8046b5p-9, 0x1.e1be15b1f0622p-8, -0x1.3a807092d064ap-8, -0x1.0d2a7074ebc78p-5,
        -0x1.e56f80d055699p-4, 0x1.0aa48441c85efp-1, 0x1.cf9f8d5e1a475p-56, 0x1.193bed4dff243p1
    },
    {
        -0x1.abcc3a061688p-10, 0x1.57637a2e8cebp-8, 0x1.898ce08c5f8cep-11, -0x1.1804c3e78ff83p-5, -0x1.17b48f5e036f7p-3,
        0x1.e6d8fe042ecafp-2, 0x1.6b450e1e688eep-4, 0x1.3p1
    },
    {
        -0x1.02f33d4ec458bp-10, 0x1.b61af05167955p-9, 0x1.897ea340036c4p-8, -0x1.f57fcb3a47b3fp-6,
        -0x1.4a227bd817e85p-3, 0x1.9a8086219bc62p-2, 0x1.967fbde1e26fdp-3, 0x1.5p1
    },
    {
        -0x1.746ffe6bd79bdp-11, 0x1.12abfb6dace4dp-9, 0x1.328f93b146ef9p-7, -0x1.758eeef41e05fp-6,
        -0x1.7394b370fcf1cp-3, 0x1.428971d1446dbp-2, 0x1.27187e118f03ap-2, 0x1.7p1
    },
    {
        -0x1.2f46fcf30647dp-11, 0x1.2ab607bba4c19p-10, 0x1.7412d2c688f6cp-7, -0x1.948c17d82f42dp-7,
        -0x1.8ed40f76b30f6p-3, 0x1.c3cd16e01402p-3, 0x1.6bcae39fcec6p-2, 0x1.9p1
    },
    {
        -0x1.0701de9b82ba2p-11, 0x1.5d36fe39dd371p-12, 0x1.91cc5968477e2p-7, -0x1.db99a67b33f98p-12,
        -0x1.98c629e561cbap-3, 0x1.f246d51d3f415p-4, 0x1.97a7366a44aep-2, 0x1.bp1
    },
    {
        -0x1.ce24740117a75p-12, -0x1.874d73f2ac42dp-12, 0x1.90a1d202a43e2p-7, 0x1.84c339e095e0bp-7,
        -0x1.9001887e6f3e8p-3, 0x1.713b820f37a07p-6, 0x1.aa1032ea71092p-2, 0x1.dp1
    },
    {
        -0x1.8cf4dc009efc9p-12, -0x1.031876d7fd22ap-10, 0x1.74654d5364a3ap-7, 0x1.84b0468caca75p-6,
        -0x1.7490649287813p-3, -0x1.277f1ee95f83fp-4, 0x1.a392128ee4f97p-2, 0x1.fp1
    },
    {
        -0x1.6935c180cce6cp-12, -0x1.497ca1a9fb209p-10, 0x1.5d502d7d35f93p-7, 0x1.df04443c3d9acp-6,
        -0x1.60346125b45cp-3, -0x1.dcdd7d65411d1p-4, 0x1.9779d664523bep-2, 0x1p2
    },
    {
        -0x1.861ac589b85dbp-13, -0x1.0e27629c3a1c7p-9, 0x1.a39f2631833e9p-8, 0x1.7e0b213d71b33p-5,
        -0x1.d2f26796fd497p-4, -0x1.0bdf1d5850bcp-2, 0x1.3438a46b12235p-2, 0x1.2p2
    },
    {
        -0x1.1986f877aed0bp-18, -0x1.33d7d8cabccc4p-9, 0x1.90dd1972692e5p-11, 0x1.b9be59d7e7793p-5,
        -0x1.30753f9d74543p-5, -0x1.5a3454d7fb876p-2, 0x1.2ed2df29314fbp-3, 0x1.4p2
    },
    {
        0x1.5b5366b4a4bp-13, -0x1.1bc731060a903p-9, -0x1.10b1e1ba97d6ep-8, 0x1.a15d97d4a2ad2p-5, 0x1.00b9fcebe2028p-5,
        -0x1.5c7c556fdf652p-2, 0x1.46a40b234169cp-53, 0x1.5b7fe4e87b02ep2
    },
    {
        0x1.38303bff05b3ap-12, -0x1.69fecbd3acbf5p-10, -0x1.3235e5b824fe1p-7, 0x1.1fadef870290fp-5,
        0x1.b4e11d04b8f28p-4, -0x1.093e3045dfe96p-2, -0x1.666bd2c9daf3ep-3, 0x1.8p2
    },
    {
        0x1.756ad8f61327ep-12, -0x1.8f58759bbe393p-12, -0x1.7bb2f52fcd227p-7, 0x1.c31259bff9acp-7, 0x1.26acf989266a3p-3,
        -0x1.0c70cfd722facp-3, -0x1.18ab620718a46p-2, 0x1.ap2
    },
    {
        0x1.5d4344e7245f2p-12, 0x1.60ae1769d9ba5p-11, -0x1.6f388583aabd5p-7, -0x1.36510b1dd848dp-7,
        0x1.2d13bb031d2c6p-3, 0x1.1b40f12b2c7dep-6, -0x1.35ee66725bb42p-2, 0x1.cp2
    },
    {
        0x1.eef7cbdc8e3f7p-13, 0x1.943fc451cc112p-10, -0x1.124bae773b7eap-7, -0x1.e1e2a009e381p-6, 0x1.dfcaab7aabdbap-4,
        0x1.37045804ce3ffp-3, -0x1.0958fbf7ff0a3p-2, 0x1.ep2
    },
    {
        0x1.7441dc73d9185p-14, 0x1.0b1168e8699ep-9, -0x1.f14b08f0db382p-9, -0x1.564c27194118ap-5, 0x1.005ed61f76964p-4,
        0x1.f23c48ecd1cf6p-3, -0x1.43b5340f69336p-3, 0x1p3
    },
    {
        -0x1.48fddea3345dcp-14, 0x1.07ea8d270c62p-9, 0x1.3cd1b87a2b48cp-9, -0x1.6396094465be9p-5, -0x1.02b38c8e2cbfcp-6,
        0x1.15f994011be98p-2, -0x1.63bc010b45f46p-54, 0x1.13127ae6169b4p3
    },
    {
        -0x1.c37627495aa85p-13, 0x1.a7611a16b287cp-10, 0x1.91b43c5f0c3bep-8, -0x1.2a21426d10428p-5,
        -0x1.093c5b17f49fdp-4, 0x1.e8220c0e16af8p-3, 0x1.ab45c28f74d94p-4, 0x1.2p3
    },
    {
        -0x1.3df5e8b740626p-12, 0x1.aea6b50c4836p-11, 0x1.2ea6513e26d76p-7, -0x1.530e956e7d5abp-6,
        -0x1.bbccee5dc2f29p-4, 0x1.32d68aaaaf589p-3, 0x1.a01cc87894bdbp-3, 0x1.3p3
    },
    {
        -0x1.4ee96ecb7401p-12, -0x1.12beeabec8f9dp-13, 0x1.4b4b94a1a2935p-7, -0x1.f1629d668d81fp-11,
        -0x1.ff2f74884835fp-4, 0x1.f821292cd2bbdp-6, 0x1.fdfbcc7958f3cp-3, 0x1.4p3
    },
    {
        -0x1.12c7e8e663141p-12, -0x1.0b5de1fe4276bp-10, 0x1.1ad9212c8bc72p-7, 0x1.29a1e9c70b1efp-6,
        -0x1.c8c5a5a29157ep-4, -0x1.6fc574ac781dep-4, 0x1.dea0528dd9e01p-3, 0x1.5p3
    },
    {
        -0x1.32f61bdf241acp-13, -0x1.aee780666a9b2p-10, 0x1.563935fccc4f5p-8, 0x1.0872946548d0ap-5,
        -0x1.2a4a7f33321b3p-4, -0x1.78473f8ac4acap-3, 0x1.4f44d94af863bp-3, 0x1.6p3
    },
    {
        0x1.517b58143aec3p-17, -0x1.e5969a929054cp-10, -0x1.9fd4c0de92bc3p-10, 0x1.367b41e36dbe2p-5,
        0x1.44299eaf2c7d8p-7, -0x1.dc14ea1eb68fap-3, 0x1.f96d32c02f147p-58, 0x1.77f9138d43206p3
    },
    {
        0x1.278eecd71f53dp-13, -0x1.b0f2f9dab861ep-10, -0x1.ed834d651a384p-9, 0x1.2064e082edafap-5,
        0x1.3382d6c238edfp-5, -0x1.c38a846134a43p-3, -0x1.d3c1bd61d8d06p-5, 0x1.8p3
    },
    {
        0x1.01733f58e9182p-12, -0x1.15bf024e8383ep-10, -0x1.d99b1a258e2acp-8, 0x1.88a11e9e3dfc4p-6,
        0x1.531468c59def9p-4, -0x1.4571298a999cfp-3, -0x1.3b0f8d459e289p-3, 0x1.9p3
    },
    {
        0x1.3010de260c682p-12, -0x1.f7006aad4b06cp-13, -0x1.23092164b3e14p-7, 0x1.ec5157f7d0b7ap-8,
        0x1.b579cd9e405dap-4, -0x1.fc4b9370b48bfp-5, -0x1.ae3f295550e42p-3, 0x1.ap3
    },
    {
        0x1.1680fa15b25fbp-12, 0x1.3fd9e453694a5p-11, -0x1.135105ae9d5f6p-7, -0x1.4bde3e176010ap-7,
        0x1.acf2327d3d36ap-4, 0x1.78435d44e0936p-5, -0x1.b651a7733c6ffp-3, 0x1.bp3
    },
    {
        0x1.794d715cce512p-13, 0x1.527859a60da8bp-10, -0x1.86fc37cf43d4fp-8, -0x1.9603fde5768b1p-6,
        0x1.3f331bd0c51d9p-4, 0x1.1cde3e670eb04p-3, -0x1.5549e40e8e085p-3, 0x1.cp3
    },
    {
        0x1.c9762a64f815cp-15, 0x1.b048848c5aa43p-10, -0x1.20d75580b3415p-9, -0x1.0f2962e414ed7p-5,
        0x1.1308a3a3c9231p-5, 0x1.912f4d09a9595p-3, -0x1.4bf2caa236d9bp-4, 0x1.dp3
    },
    {
        -0x1.4062aa10bc88bp-14, 0x1.b2138e6c02969p-10, 0x1.26da75b1f5c8ap-10, -0x1.1631baa38db5p-5,
        -0x1.c650c8f06d38bp-8, 0x1.a7022be881456p-3, 0x1.213201464272bp-53, 0x1.dcb7d88de848bp3
    },
    {
        -0x1.9375d64f9675ep-13, 0x1.3836edae5c2acp-10, 0x1.6b10689945303p-8, -0x1.a43732c869117p-6,
        -0x1.ff582914c895ep-5, 0x1.4e506f23d8852p-3, 0x1.d629fe820f912p-4, 0x1.fp3
    },
    {
        -0x1.0cc8b0b96a93cp-12, 0x1.082c0dac44c27p-11, 0x1.f8d0fda6d2667p-8, -0x1.8d0c9d438aae7p-7,
        -0x1.75e8cb36482bap-4, 0x1.5ae154d1c07c5p-4, 0x1.6c7e3ed0c24b7p-3, 0x1p4
    },
    {
        -0x1.0eb646ea5242p-12, -0x1.2953fdee072eap-12, 0x1.05793de580ef9p-7, 0x1.fe99f539bc38ap-9,
        -0x1.8f72f3c8eb151p-4, -0x1.80401f6284a42p-7, 0x1.9261ec8df51c6p-3, 0x1.08p4
    },
    {
        -0x1.a14f67a3fe6acp-13, -0x1.01a593498da5fp-10, 0x1.a082b594404ccp-8, 0x1.2f7e0c0545e52p-6,
        -0x1.48e7f35eb87bep-4, -0x1.a3ba81bd2cba9p-4, 0x1.566f980d6cfep-3, 0x1.1p4
    },
    {
        -0x1.8b3155d05fa27p-14, -0x1.771d3fea92c62p-10, 0x1.ac030b693756p-9, 0x1.d032c02708b9bp-6, -0x1.6b9270f56105p-5,
        -0x1.540ed62c83612p-3, 0x1.93c1122d6b1a5p-4, 0x1.18p4
    },
    {
        0x1.0b0e4b18ad1a1p-15, -0x1.8e63ad5340857p-10, -0x1.bdebae2cc477fp-11, 0x1.fbe6b246f0c49p-6,
        0x1.54ed8e0a7ad76p-8, -0x1.80781c2d9af61p-3, -0x1.39d4c41d5839fp-52, 0x1.20b1c695f1e3bp4
    },
    {
        0x1.2f500b2ec7536p-13, -0x1.4a3264cd4c645p-10, -0x1.0b9f2170c5449p-8, 0x1.b095d63b98ee5p-6,
        0x1.7239557fe76e6p-5, -0x1.505bc5b1ac642p-3, -0x1.4ed6d7ac30772p-4, 0x1.28p4
    },
    {
        0x1.d16b73941fb0cp-13, -0x1.6dff7b3506f65p-11, -0x1.af82e6d4eb6b1p-8, 0x1.fbe341d16aaf1p-7,
        0x1.3c68408cf1201p-4, -0x1.a059c3c657086p-4, -0x1.324c92ae9beb3p-3, 0x1.3p4
    },
    {
        0x1.009198b753756p-12, 0x1.10c49ca948f34p-16, -0x1.e866a99e466ccp-8, 0x1.30ef25cccaf99p-10,
        0x1.707cb0e1c80ebp-4, -0x1.0a215a80ed25ap-6, -0x1.6fbf8c32b880ep-3, 0x1.38p4
    },
    {
        0x1.b5a7cfa6573f2p-13, 0x1.744072279d1fdp-11, -0x1.ab443fb0ffd2dp-8, -0x1.ad3f6257f3de1p-7,
        0x1.4adbc9efc7dbdp-4, 0x1.2279006a570c6p-4, -0x1.52f7c0d65c8e1p-3, 0x1.4p4
    },
    {
        0x1.039740f2c027cp-13, 0x1.3f68e96067acap-10, -0x1.096c5cb9ffbc2p-8, -0x1.8749b8a7ea7d5p-6,
        0x1.ad6b86eb7658dp-5, 0x1.1c66586e6c76p-3, -0x1.ca41bcc7ee212p-4, 0x1.48p4
    },
    {
        0x1.48b7a4e1d27f7p-18, 0x1.76dd8180d1931p-10, 0x1.619b00dbe1fa8p-11, -0x1.d5f83125998c5p-6,
        -0x1.0bf63969f82f4p-8, 0x1.62d94d9483025p-3, -0x1.b20138dd047ecp-53, 0x1.53025492188cdp4
    },
    {
        -0x1.aa44ad4072137p-14, 0x1.50f97e949d6ecp-10, 0x1.6eacade5689b3p-9, -0x1.b229f6606c516p-6,
        -0x1.ed6cdf293425ep-6, 0x1.4cc780a49dfc9p-3, 0x1.b072c90ea1ca4p-5, 0x1.58p4
    },
    {
        -0x1.89e5d5e004e44p-13, 0x1.b9687fcc22387p-11, 0x1.6988695f97d3ep-8, -0x1.26e6068e216ap-6, -0x1.06d9ed651b74p-4,
        0x1.d4156b9d62c1ep-4, 0x1.f9786b4a0b2ccp-4, 0x1.6p4
    },
    {
        -0x1.dcc57511d1e2ap-13, 0x1.b069d59ff9fa6p-13, 0x1.c130f610a15dap-8, -0x1.5f664b1965557p-8,
        -0x1.4ffdd3f776a38p-4, 0x1.44544bd7ce5ffp-5, 0x1.4d0bb4a4775c5p-3, 0x1.68p4
    },
    {
        -0x1.bbe7ac3e4bfcdp-13, -0x1.e86375807f197p-12, 0x1.ab36a145bbe43p-8, 0x1.0fbbfc5c22209p-7,
        -0x1.46a48dda42ca6p-4, -0x1.60585d86ac96ap-5, 0x1.4b1938d8453e3p-3, 0x1.7p4
    },
    {
        -0x1.316a5521d64acp-13, -0x1.0964bc6c10d5dp-10, 0x1.2f1e1f8958c25p-8, 0x1.42345354948e8p-6,
        -0x1.dd9cfb4ff69f2p-5, -0x1.d0be6ca527959p-4, 0x1.f24ab5e040c7cp-4, 0x1.78p4
    },
    {
        -0x1.81d5ce28e613bp-15, -0x1.562a4c81e4675p-10, 0x1.b2e385c884f81p-10, 0x1.ab2cd95dab1a6p-6,
        -0x1.7cfd3472d5f64p-6, -0x1.3d8827d976c48p-3, 0x1.b2aa6a658e801p-5, 0x1.8p4
    },
    {
        0x1.e41dbc1e3225ep-15, -0x1.5e8e4c42a46e3p-10, -0x1.1ee7dca3194dep-11, 0x1.b75110d3ff129p-6,
        0x1.b3874d278addbp-9, -0x1.4b2a38f3edd08p-3, 0x1.b67dbfd3bd179p-55, 0x1.854fa303820cap4
    },
    {
        0x1.43d1c0ae9302p-13, -0x1.f0133da0bf554p-11, -0x1.2665812b64102p-8, 0x1.44522e6c608c4p-6, 0x1.a85c56bbb33e7p-5,
        -0x1.f90578aa82a93p-4, -0x1.94cebaa9bdcb4p-4, 0x1.9p4
    },
    {
        0x1.b2bddb3b7ffd3p-13, -0x1.9b44987c539cfp-12, -0x1.9671c53b2676ap-8, 0x1.229bfb1937c3cp-7,
        0x1.2dfe30c0e7d42p-4, -0x1.e4a21c655b794p-5, -0x1.29b30f0a9e951p-3, 0x1.98p4
    },
    {
        0x1.b73dab4aa7a1ep-13, 0x1.01b843466a1bdp-12, -0x1.a28993c3c195ep-8, -0x1.054b73d297117p-8,
        0x1.3d2db8875b864p-4, 0x1.2783d3883a2ep-6, -0x1.3f1243679af71p-3, 0x1.ap4
    },
    {
        0x1.521ed1f9a4acbp-13, 0x1.aa4240b66137ap-11, -0x1.499b1c22a4c55p-8, -0x1.004180c3db9dep-6,
        0x1.fef912899e49fp-5, 0x1.6e33caacb760ep-4, -0x1.06c52743fac52p-3, 0x1.a8p4
    },
    {
        0x1.3afeea5f9302cp-14, 0x1.33df45a920e69p-10, -0x1.45bf8fa4dd97fp-9, -0x1.7ddba067ec647p-6,
        0x1.0a72702a68b81p-5, 0x1.1a3fbbab382f7p-3, -0x1.1fbfc32b9e7d5p-4, 0x1.bp4
    },
    {
        -0x1.c2d468a2dca7cp-16, 0x1.47dd161951918p-10, 0x1.e06b5847c733dp-12, -0x1.9de768851fc98p-6,
        -0x1.6afe69d3428f4p-9, 0x1.37aacea636e02p-3, 0x1.19e290514c619p-54, 0x1.b79acee8cfb7dp4
    },
    {
        -0x1.ff4c10eff3acdp-14, 0x1.0ab774933529p-10, 0x1.cbd1ce0ecda49p-9, -0x1.57f2f2449c974p-6,
        -0x1.47d5d5ca37daap-5, 0x1.087a28ec72dd6p-3, 0x1.3556b07cb9225p-4, 0x1.cp4
    },
    {
        -0x1.848f9df749fdap-13, 0x1.1ebc022b7dc84p-11, 0x1.68f1ab99e7509p-8, -0x1.82014596d9efbp-7,
        -0x1.0aa6e14d1ab9bp-4, 0x1.34eea9abf8cdcp-4, 0x1.058dd46d95268p-3, 0x1.c8p4
    },
    {
        -0x1.a9b34aaacd9cp-13, -0x1.8f2f8069564f8p-15, 0x1.92a738eb1e599p-8, 0x1.fb2307b9108afp-14,
        -0x1.2f1f5962337b1p-4, 0x1.1ed2127086b72p-8, 0x1.2f2c83227b01fp-3, 0x1.dp4
    },
    {
        -0x1.67ac530dee213p-13, -0x1.4578e302ea476p-11, 0x1.5a778e0915e76p-8, 0x1.8265ad0e2a8e9p-7,
        -0x1.09a4e9bd350abp-4, -0x1.10750ebb5941fp-4, 0x1.0e92b1cafe2b3p-3, 0x1.d8p4
    },
    {
        -0x1.a00827352a108p-14, -0x1.0f4c49319ac06p-10, 0x1.9f14f454bf4f2p-9, 0x1.4e8b832216a07p-6,
        -0x1.49061e4be9b4ep-5, -0x1.ebf86063c148fp-4, 0x1.59cea08f03725p-4, 0x1.ep4
    },
    {
        -0x1.9703ecd25d101p-21, -0x1.38cb39efd8e38p-10, -0x1.9877e95a93ea8p-12, 0x1.88692a3a9687p-6,
        0x1.349360a08a773p-9, -0x1.274081a6636edp-3, -0x1.19366994a86bcp-56, 0x1.e9e480605283cp4
    },
    {
        0x1.7b95bc97d6e13p-14, -0x1.15e181e1c79eep-10, -0x1.503b3d556d462p-9, 0x1.62efec3dd9c85p-6,
        0x1.d7afc5a6c4de6p-6, -0x1.0e903063420e5p-3, -0x1.b53aee48db3fp-5, 0x1.fp4
    },
    {
        0x1.5359d8fdbf219p-13, -0x1.611795618f439p-11, -0x1.395e5096070cap-8, 0x1.cfd1e7b8cc8aep-7,
        0x1.cc78157143ac9p-5, -0x1.6b2fe836812b7p-4, -0x1.c1646921e3f4ep-4, 0x1.f8p4
    },
    {
        0x1.94bf5154f50e1p-13, -0x1.10ebe32651161p-13, -0x1.7c9e4ec1828d9p-8, 0x1.b5717bc64c77dp-9,
        0x1.1d0670878b672p-4, -0x1.8ffb5ec08b75cp-6, -0x1.1bbd6483b3f99p-3, 0x1p5
    },
    {
        0x1.7373d68109ee2p-13, 0x1.c9a72367021c4p-12, -0x1.62cd7239068aap-8, -0x1.0a225b420d7c1p-7,
        0x1.0dec13179902cp-4, 0x1.6ebd466584624p-5, -0x1.11006f831a835p-3, 0x1.04p5
    },
    {
        0x1.f1e159e9cc8cep-14, 0x1.d22afd35aabc6p-11, -0x1.e71a5cabf667fp-9, -0x1.1dc3dde8edcc3p-6,
        0x1.7b4a46aba599bp-5, 0x1.a1f1d09eee593p-4, -0x1.8850bcd664558p-4, 0x1.08p5
    },
    {
        0x1.1042002c46a5ap-15, 0x1.25ab2cc640c4fp-10, -0x1.2c118a042fab5p-10, -0x1.6efe8bcd6f2a1p-6,
        0x1.026e76ac60f84p-6, 0x1.11cf490d9bb1bp-3, -0x1.236284c4aa841p-5, 0x1.0cp5
    },
    {
        -0x1.c77c1df3ff2acp-15, 0x1.2ec6517da6cfbp-10, 0x1.5c828982efd9ap-12, -0x1.75eadc06b62edp-6,
        -0x1.0a84f167254e1p-9, 0x1.192f2626327d9p-3, 0x1.bec2345ac18e2p-52, 0x1.0e16907f8fb56p5
    },
    {
        -0x1.200e280484cbap-13, 0x1.95d90ca7b2d2ap-11, 0x1.085f24115eae7p-8, -0x1.06aad2745d152p-6,
        -0x1.822b306969816p-5, 0x1.95dbe02827c03p-4, 0x1.76b8318c00cc6p-4, 0x1.14p5
    },
    {
        -0x1.798cddbf546f9p-13, 0x1.2e038b6c17a14p-12, 0x1.6152489d57545p-8, -0x1.a39e23a3d0139p-8,
        -0x1.07664927cf55bp-4, 0x1.5954f3c50530dp-5, 0x1.0525656337088p-3, 0x1.18p5
    },
    {
        -0x1.768430c0f9601p-13, -0x1.11b209dbca18fp-12, 0x1.6377b4f155cadp-8, 0x1.304238e945752p-8,
        -0x1.0cd7211b84fcbp-4, -0x1.8c8822d206e8ap-6, 0x1.0e73811df5ba1p-3, 0x1.1cp5
    },
    {
        -0x1.18ef09e1f3079p-13, -0x1.83a55f4d2330cp-11, 0x1.0f7c23077a2c7p-8, 0x1.d82d7488ed5d1p-7,
        -0x1.a1fca181ab4eep-5, -0x1.57123833449cfp-4, 0x1.abd8c2d55c7b5p-4, 0x1.2p5
    },
    {
        -0x1.e287142faa139p-15, -0x1.0e9b65a23e95cp-10, 0x1.eb7d9a6dd201dp-10, 0x1.50b09ceaebe92p-6,
        -0x1.8d0f90a4245dap-6, -0x1.f45b5bad74839p-4, 0x1.a8cbe5979b357p-5, 0x1.24p5
    },
    {
        0x1.ecf35b17bf3abp-16, -0x1.1d4c88f287b8dp-10, -0x1.3612375a7a1eap-12, 0x1.65d0889c2f0afp-6,
        0x1.d26eb707ea976p-10, -0x1.0cf3ee9dc57d7p-3, 0x1.334eb74fdcfd1p-53, 0x1.273a7b35a7affp5
    },
    {
        0x1.d7102e54b85eep-14, -0x1.bdd878d53c238p-11, -0x1.ad376f71328d2p-9, 0x1.1dbebad8c87b4p-6,
        0x1.37321e9406348p-5, -0x1.b5872fc5066b4p-4, -0x1.2bbdd3d34c097p-4, 0x1.2cp5
    },
    {
        0x1.591f601247e6bp-13, -0x1.bf02f7205bc84p-12, -0x1.41925a35e537ep-8, 0x1.2992947a511bfp-7,
        0x1.dd8062e80584dp-5, -0x1.d81c6ed687901p-5, -0x1.d79dba68985ccp-4, 0x1.3p5
    },
    {
        0x1.71c0311aaab99p-13, 0x1.911e560aba33ep-14, -0x1.5d31b036022efp-8, -0x1.67dad4326a2dep-10,
        0x1.06dd424c179cfp-4, 0x1.4207a89cc5032p-8, -0x1.074da6478ee07p-3, 0x1.34p5
    },
    {
        0x1.308498cbbe96ep-13, 0x1.342c5d5a5c36bp-11, -0x1.23cacb5ca2909p-8, -0x1.743c9fb1b92a9p-7,
        0x1.bdb2b0dd350d3p-5, 0x1.0c1e392c61a75p-4, -0x1.c4dede3f7f0cdp-4, 0x1.38p5
    },
    {
        0x1.4ca7663138608p-14, 0x1.e849c5c100769p-11, -0x1.48b195ecb6fe2p-9, -0x1.2e834a4e4f0d8p-6,
        0x1.02760bee12503p-5, 0x1.bfcf5908a8ddbp-4, -0x1.0df89abd362e7p-4, 0x1.3cp5
    },
    {
        -0x1.9b73cb077a696p-18, 0x1.11761faec4486p-10, 0x1.11a90edbc833dp-12, -0x1.579bff411310dp-6,
        -0x1.9ca1280fa3f4ep-10, 0x1.0230ba8e0dbdfp-3, -0x1.aca291aee3c35p-53, 0x1.405e18393afb5p5
    },
    {
        -0x1.6d2de47bfd363p-14, 0x1.d9c82d1701a4bp-11, 0x1.497918c03c815p-9, -0x1.2d88e9bb0f35fp-6,
        -0x1.d8d227a4d6a8bp-6, 0x1.cab174182a396p-4, 0x1.c271ab690d04fp-5, 0x1.44p5
    },
    {
        -0x1.34653d1436b6dp-13, 0x1.1dc1595f42283p-11, 0x1.1e24afdbd1403p-8, -0x1.74b38cfaeeccfp-7,
        -0x1.a72d6afceb7e9p-5, 0x1.222e676d1bf8dp-4, 0x1.a058f5cb8255cp-4, 0x1.48p5
    },
    {
        -0x1.65f4660818ab6p-13, 0x1.ea9715c5c8b86p-15, 0x1.50a88b48da5d1p-8, -0x1.b4eb90c34f3cdp-10,
        -0x1.f8e254c343e4p-5, 0x1.a96613ed9fc0cp-7, 0x1.f7e5369747c24p-4, 0x1.4cp5
    },
    {
        -0x1.4025d7e4696b7p-13, -0x1.c9bb66734a962p-12, 0x1.30de551aa9a9ap-8, 0x1.10f31a3f088cap-7,
        -0x1.cef2b984a8fd8p-5, -0x1.83d86f2085203p-5, 0x1.d3d49fa8e4948p-4, 0x1.5p5
    },
    {
        -0x1.9a4a78110540bp-14, -0x1.add92a59e84e1p-11, 0x1.8ee5ff5f0b388p-9, 0x1.092ffdf61b56ap-6,
        -0x1.35041005fa431p-5, -0x1.86f3d6a4f5788p-4, 0x1.3e641a20a69dep-4, 0x1.54p5
    },
    {
        -0x1.024b2b707eef9p-16, -0x1.0aaaa36eb25acp-10, -0x1.eccf1fd53ef28p-13, 0x1.4af730ac702fp-6,
        0x1.706f3ced4b34cp-10, -0x1.f13fb0bc00268p-4, 0x1.ef92aa9c8e53cp-55, 0x1.5981787d668dbp5
    },
    {
        0x1.0402869bc4b24p-14, -0x1.ea4c1d0bca568p-11, -0x1.cda686885febcp-10, 0x1.36672b448a1bbp-6,
        0x1.456a451681d55p-6, -0x1.d5d6c89015566p-4, -0x1.2ff955cb1d24bp-5, 0x1.5cp5
    },
    {
        0x1.0c415c006219cp-13, -0x1.51c21f2cb64abp-11, -0x1.ef974575358dcp-9, 0x1.b3341f9f1c212p-7, 0x1.6cdd240a7456p-5,
        -0x1.4f08991ed88ap-4, -0x1.656f1e565db9p-4, 0x1.6p5
    },
    {
        0x1.53e39eeadc7ep-13, -0x1.a3b6ed0f23623p-13, -0x1.3e84e4d2b3e53p-8, 0x1.23e368aa3e387p-8, 0x1.dc0c58303e81dp-5,
        -0x1.e1112e3e887bap-6, -0x1.d995b23787e52p-4, 0x1.64p5
    },
    {
        0x1.484280dba010ap-13, 0x1.2d9fa1a3ee9dfp-12, -0x1.3718e9a934259p-8, -0x1.5f21e398921ap-8, 0x1.d642bc13321cap-5,
        0x1.e56b90428e1adp-6, -0x1.d930ee47220a2p-4, 0x1.68p5
    },
    {
        0x1.da2d44af44b06p-14, 0x1.6f2644314ea82p-11, -0x1.c8601b6ac4c23p-9, -0x1.c2e0b60cb0969p-7,
        0x1.5e3330d8c70fdp-5, 0x1.4aca2a33e3a21p-4, -0x1.65a48feca5117p-4, 0x1.6cp5
    },
    {
        0x1.6561ca0e5ef78p-15, 0x1.ec0014a406089p-11, -0x1.6af5f2b9a59d6p-10, -0x1.32ce73a6c8103p-6,
        0x1.249688f38f877p-6, 0x1.c97757d300967p-4, -0x1.38a027a78ff1bp-5, 0x1.7p5
    },
    {
        -0x1.1a176bc07d86p-15, 0x1.00fc9895c8655p-10, 0x1.b749cd896f1a7p-13, -0x1.3f9e33f7418cp-6,
        -0x1.4b98efd98577p-10, 0x1.e018dac48ee72p-4, 0x1.13e3c695ea088p-52, 0x1.72a4a85cc317ep5
    },
    {
        -0x1.c31f661c77e84p-14, 0x1.7b8a829c09692p-11, 0x1.9e8f57733034cp-9, -0x1.e51cc5ea4f276p-7,
        -0x1.2f9cd209a0281p-5, 0x1.729ffa0c55388p-4, 0x1.27dc627fa4119p-4, 0x1.78p5
    },
    {
        -0x1.3c4df2ca4e8f1p-13, 0x1.5823accb58a8cp-12, 0x1.277005c40029fp-8, -0x1.c8a1c152027a3p-8,
        -0x1.b82595102a8c4p-5, 0x1.694fa88db73dap-5, 0x1.b4897974a6047p-4, 0x1.7cp5
    },
    {
        -0x1.494d1d47a321fp-13, -0x1.2c3dc743984ffp-13, 0x1.36e08455d7539p-8, 0x1.4545a22cc3d93p-9,
        -0x1.d4316b3611fa2p-5, -0x1.9a4d34eaeefa3p-7, 0x1.d5771db4f2a52p-4, 0x1.8p5
    },
    {
        -0x1.062fdb459dd39p-13, -0x1.2d6cb449d80e8p-11, 0x1.f530a38febbf9p-9, 0x1.6ffc6bda8242ep-7,
        -0x1.7e0e649798ba8p-5, -0x1.0c590873e613dp-4, 0x1.83c106d46965ap-4, 0x1.84p5
    },
    {
        -0x1.08208c1a1eeb3p-14, -0x1.c4408574f9639p-11, 0x1.04050ecbe67a1p-9, 0x1.191eca783cbd8p-6,
        -0x1.97b53c01beb4fp-6, -0x1.a1df79121141p-4, 0x1.a8f0e3707a604p-5, 0x1.88p5
    },
    {
        0x1.b8f36805c206cp-17, -0x1.eccc627668332p-11, -0x1.902b802b49851p-13, 0x1.355b65b22ae29p-6,
        0x1.2c84d83c6b6c1p-10, -0x1.d09b21da34db2p-4, -0x1.a1c861fdd1438p-53, 0x1.8bc7b10ed396p5
    },
    {
        0x1.6a4de7f3c833bp-14, -0x1.9b2fa9998a92ap-11, -0x1.4aaefb1e90202p-9, 0x1.0543c07139b21p-6,
        0x1.e0f701aec6d97p-6, -0x1.8d058250af5b8p-4, -0x1.d1452660e7e7dp-5, 0x1.9p5
    },
    {
        0x1.1ff464c1f3d2ep-13, -0x1.cf1d568c72b1cp-12, -0x1.0c165a99be924p-8, 0x1.2d1b4feac1b16p-7,
        0x1.8e2375336637cp-5, -0x1.d3c89ad2c2294p-5, -0x1.89a94e1d734f8p-4, 0x1.94p5
    },
    {
        0x1.43bf955c9de05p-13, 0x1.4e2a6013b9e92p-18, -0x1.30a2f52a5a78bp-8, 0x1.13724d124e3c7p-12,
        0x1.c95b4d5ea19bep-5, -0x1.edb63abde445cp-9, -0x1.c93adc0a10198p-4, 0x1.98p5
    },
    {
        0x1.1884f26df7667p-13, 0x1.d3c526b4c3fe1p-12, -0x1.0abefc7813cf5p-8, -0x1.1b24f96dacacbp-7,
        0x1.94b1035083c78p-5, 0x1.995281a1c47fep-5, -0x1.98d1d1562c741p-4, 0x1.9cp5
    },
    {
        0x1.530b1d4d1fe18p-14, 0x1.9615bcb1af46cp-11, -0x1.48af5cd979627p-9, -0x1.f73377b93a276p-7,
        0x1.fc13348b1168fp-6, 0x1.74cbc08b5f6d8p-4, -0x1.054da4f3fe052p-4, 0x1.ap5
    },
    {
        0x1.a4c75edef8754p-18, 0x1.e02c8277ce9d6p-11, 0x1.6bf6b8a885685p-13, -0x1.2c064b99a9fc3p-6,
        -0x1.1201ba532d382p-10, 0x1.c28613529dbbep-4, -0x1.12113bd62caabp-55, 0x1.a4ea9997b5eaap5
    },
    {
        -0x1.0fb10b0543088p-14, 0x1.b0dad42d3b0eep-11, 0x1.eadc2b47189b4p-10, -0x1.11d399d90b4dcp-6,
        -0x1.610e5c1d0f371p-6, 0x1.9e5d47c94e69ep-4, 0x1.518a349ce3eeap-5, 0x1.a8p5
    },
    {
        -0x1.ff34bab9e58b4p-14, 0x1.1af2606147393p-11, 0x1.da506058b52bep-9, -0x1.6bc9b4aea6843p-7,
        -0x1.5f03c4a64d581p-5, 0x1.1797ee65a0e6ep-4, 0x1.59e8d6a8d6a72p-4, 0x1.acp5
    },
    {
        -0x1.381dad8ced128p-13, 0x1.06696171c9b4dp-13, 0x1.24d7fe49a4f3cp-8, -0x1.745d84711c09p-9,
        -0x1.b66d4c116491cp-5, 0x1.37f13dbb4b613p-6, 0x1.b521f6d9fde14p-4, 0x1.bp5
    },
    {
        -0x1.2438f0024de6ap-13, -0x1.4b6ddb45a9563p-12, 0x1.14c4fd753b275p-8, 0x1.8b8e0456ad02fp-8,
        -0x1.a24b2090c7fabp-5, -0x1.198443ae657b5p-5, 0x1.a5049737b8541p-4, 0x1.b4p5
    },
    {
        -0x1.92e49a579113bp-14, -0x1.62a156c932feep-11, 0x1.82fdff630f0e1p-9, 0x1.b5dc579a79342p-7,
        -0x1.287f5e3e8c6b5p-5, -0x1.43390f361336ap-4, 0x1.2e796bef6f3c8p-4, 0x1.b8p5
    },
    {
        -0x1.f3eb6bd3f050fp-16, -0x1.c79515288ad5ep-11, 0x1.ff15cef20f8b6p-11, 0x1.1c992b51a58f4p-6,
        -0x1.9e6ce804cd299p-7, -0x1.a94f2c3fb830cp-4, 0x1.bd390e7657431p-6, 0x1.bcp5
    },
    {
        0x1.4061a30504bb6p-15, -0x1.da0ccc451911bp-11, -0x1.45c8127cad04ap-13, 0x1.237a29b3bf70fp-6,
        0x1.f65cd5dcfbd5dp-11, -0x1.b5a6221b9d0d5p-4, -0x1.3448a297cc357p-54, 0x1.be0d6766d13dep5
    },
    {
        0x1.b80b6ba92a7bcp-14, -0x1.45e44e8b225a9p-11, -0x1.96b297e558c8ep-9, 0x1.9ff2b77a1e448p-7,
        0x1.2bcb580159d55p-5, -0x1.3d76ae2e6d83cp-4, -0x1.264485f344bf7p-4, 0x1.c4p5
    },
    {
        0x1.26f60d60480ap-13, -0x1.0173055472594p-12, -0x1.14021d7f2644cp-8, 0x1.56343e92d45ecp-8, 0x1.9c2574aaf85c6p-5,
        -0x1.0f45e76382ee9p-5, -0x1.99e493fbea17p-4, 0x1.c8p5
    },
    {
        0x1.297f986756076p-13, 0x1.883d1f077aa16p-13, -0x1.18dac205e61a1p-8, -0x1.c5174d8af47ddp-9,
        0x1.a7241cf22fab8p-5, 0x1.3696d2d2e48b1p-6, -0x1.a89eb0b67cbb6p-4, 0x1.ccp5
    },
    {
        0x1.c745b89aabd73p-14, 0x1.2b08da7c4423p-11, -0x1.b295e09555af2p-9, -0x1.6f9cf30c34935p-7, 0x1.4afad5345073dp-5,
        0x1.0e2b06fd328b7p-4, -0x1.4fbcd933e4ce8p-4, 0x1.dp5
    },
    {
        0x1.9becbb93479b2p-15, 0x1.a985e28fd588fp-11, -0x1.9581298f38e79p-10, -0x1.092185f9e00fp-6,
        0x1.3dfaeb028a142p-6, 0x1.8b365a7853efap-4, -0x1.4b96acb522bb7p-5, 0x1.d4p5
    },
    {
        -0x1.4aea15b488c59p-16, 0x1.c5ace0444c2ecp-11, 0x1.34aa8aa189f86p-13, -0x1.1ba25557eb9a2p-6,
        -0x1.ceb3b78b24e39p-11, 0x1.a9d183c49bed4p-4, -0x1.8c87d6240a395p-53, 0x1.d7301ec2bf16ep5
    },
    {
        -0x1.6bfb9b0c6b0ep-14, 0x1.6827f3c5ad4d2p-11, 0x1.4ebf80364a38ap-9, -0x1.c94f117d77a7bp-7,
        -0x1.eb079301b3128p-6, 0x1.5b4d8077c019ap-4, 0x1.df7db134e4acbp-5, 0x1.dcp5
    },
    {
        -0x1.10e234d92e26fp-13, 0x1.73fb04f978c64p-12, 0x1.fd5cbf499058p-9, -0x1.e36ed77f72244p-8,
        -0x1.7b52684023af9p-5, 0x1.776bd87b35531p-5, 0x1.784c447bd6859p-4, 0x1.ep5
    },
    {
        -0x1.289e40e43b88cp-13, -0x1.0024de7d65508p-14, 0x1.17410a3942658p-8, 0x1.ef6f133f83a64p-11,
        -0x1.a39bd969542c7p-5, -0x1.04cf2a3cdf121p-8, 0x1.a3fe32bd216b6p-4, 0x1.e4p5
    },
    {
        -0x1.efeef4153334fp-14, -0x1.e0e73a1b0f7afp-12, 0x1.d74004bf05efdp-9, 0x1.25ddcf8c8594cp-7,
        -0x1.655559174b1cp-5, -0x1.ad52784e0055bp-5, 0x1.68f30db91f515p-4, 0x1.e8p5
    },
    {
        -0x1.16b4758e5901ap-14, -0x1.84a8085fe6753p-11, 0x1.0df0dbc749538p-9, 0x1.e30c3bb775fcdp-7,
        -0x1.a101698560c6bp-6, -0x1.671696973af37p-4, 0x1.accbeaedd83f8p-5, 0x1.ecp5
    },
    {
        0x1.008b5a12bb6c4p-19, -0x1.b8cc8e7e9b2d8p-11, -0x1.1c4f4a416036ep-13, 0x1.1461fce895db7p-6,
        0x1.ac005c55bb99cp-11, -0x1.9ee5eedbc49d7p-4, -0x1.17a6c493f8d71p-52, 0x1.f052c3146d1dap5
    },
    {
        0x1.1c93f45490441p-14, -0x1.819efde4a8264p-11, -0x1.03e4786e024c2p-9, 0x1.e7bc5e8686cc8p-7,
        0x1.7a7132a7ae98fp-6, -0x1.71048cafa5fd1p-4, -0x1.6eba3cf8f3df9p-5, 0x1.f4p5
    },
    {
        0x1.ed0b4c1ff1f1dp-14, -0x1.d97a21299fe7fp-12, -0x1.cae6fa9d2b99bp-9, 0x1.302289d160c6ap-7,
        0x1.54d1cff48ba95p-5, -0x1.d340d3bc05739p-5, -0x1.513238b8e4ad6p-4, 0x1.f8p5
    },
    {
        0x1.21ebe40466e19p-13, -0x1.f5fe6405592d4p-15, -0x1.104902ecaaee5p-8, 0x1.7f138bb6ad94cp-10,
        0x1.982ad3544c02bp-5, -0x1.52df7d4dd4d78p-7, -0x1.9799eec7f9b54p-4, 0x1.fcp5
    },
};

}  // namespace orvik::zym::bessel
