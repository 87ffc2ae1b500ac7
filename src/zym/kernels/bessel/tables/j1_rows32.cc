// Written by tools/approx from the rule in zym/kernels/bessel/tables.h; do not edit.
#include "zym/kernels/bessel/tables.h"

// clang-format off
namespace orvik::zym::bessel {

alignas(64) const double kJ1Rows32[128][8] = {
    {
        -0x1.549413c895c53p-15, 0x1.56d413c541aa4p-9, -0x1.8cafae8665467p-20, -0x1.ffffd187648d5p-5,
        -0x1.fdc4dd9cc4cd8p-30, 0x1.000000000e28ep-1, 0.0, 0.0
    },
    {
        -0x1.7ee1d2c8261bep-13, 0x1.301a23ab75865p-9, 0x1.9b48e4839baap-8, -0x1.cba1796f073b8p-5, -0x1.72cfccf4e479cp-4,
        0x1.d0d3c8aeaf372p-2, 0x1.f02a71f4870d7p-3, 0x1p-1
    },
    {
        -0x1.54a7a04960eecp-12, 0x1.94f31eeba8cf4p-10, 0x1.6f2f0991eeb86p-7, -0x1.39c3364a7f205p-5,
        -0x1.4cf35c9028cf6p-3, 0x1.4cf35c8d61a6cp-2, 0x1.c29c9ee970c6cp-2, 0x1p0
    },
    {
        -0x1.9ee5def2e16fap-12, 0x1.d16b742ab1f9dp-12, 0x1.c23f64b1ea17cp-7, -0x1.a6808b8072c71p-7,
        -0x1.9ce3728a1d098p-3, 0x1.1e7429946385p-3, 0x1.1da9da9d6fc81p-1, 0x1.8p0
    },
    {
        -0x1.8e3cf0a272592p-12, -0x1.8465c9f4e178dp-11, 0x1.b5b9166ede376p-7, 0x1.e1bc1e3ce3accp-7,
        -0x1.99ea49433710dp-3, -0x1.081365f358ff6p-4, 0x1.27487958371fp-1, 0x1p1
    },
    {
        -0x1.270f9706bebe9p-12, -0x1.caec8951cf03ap-10, 0x1.4d6f4390cd398p-7, 0x1.3cb0793b98e36p-5,
        -0x1.46518dd665864p-3, -0x1.fa4f38ecae87fp-3, 0x1.fd063c84795ffp-2, 0x1.4p1
    },
    {
        -0x1.01f2125e2036p-13, -0x1.365e6af626db2p-9, 0x1.42453696dd1e1p-8, 0x1.ba733d65d3e84p-5, -0x1.6a8df033c83f4p-4,
        -0x1.7e067bc2aa6a5p-2, 0x1.5b324589238dp-2, 0x1.8p1
    },
    {
        0x1.f5114875692fep-15, -0x1.42eff24e890ffp-9, -0x1.476dd16dd1627p-10, 0x1.d8d48523eca81p-5,
        -0x1.9f89e9464dcc2p-9, -0x1.ad718c2683ea2p-2, 0x1.19596399cff47p-3, 0x1.cp1
    },
    {
        0x1.cb4ed3579f91p-13, -0x1.26923b26cc5b5p-9, -0x1.535e40bd6edc4p-8, 0x1.b589f95fefc42p-5, 0x1.ae8a3480261c7p-5,
        -0x1.9c6cf5845a724p-2, -0x1.1b9c1c3fb286fp-54, 0x1.ea75575af6f09p1
    },
    {
        0x1.6417f1adda18bp-12, -0x1.306516c56bbeap-10, -0x1.69c335edfadfbp-7, 0x1.fabe2a41c0e42p-6,
        0x1.1e2dba9c7a6b5p-3, -0x1.13a80cb80665bp-2, -0x1.d93636341586fp-3, 0x1.2p2
    },
    {
        0x1.8a41f0478c679p-12, -0x1.1a952b494bd6cp-14, -0x1.9ce93d34f944ap-7, 0x1.bf94e79fe4031p-8,
        0x1.58fa4232de54fp-3, -0x1.cb156342a2357p-4, -0x1.4f70e7cb3a99dp-2, 0x1.4p2
    },
    {
        0x1.58aa8790588cap-12, 0x1.089855549ac31p-10, -0x1.754069c8a41fcp-7, -0x1.2094114a4f0eap-6,
        0x1.47ca6ccff38aap-3, 0x1.c47de180a7a78p-5, -0x1.5da1fac37d47bp-2, 0x1.6p2
    },
    {
        0x1.b856acf6dc94dp-13, 0x1.e03933849ab1cp-10, -0x1.fc589dc815a1cp-8, -0x1.2ff7f3c5673ebp-5,
        0x1.e3bf71111e70dp-4, 0x1.92f681413a46fp-3, -0x1.1b530367f4bbfp-2, 0x1.8p2
    },
    {
        0x1.917c427d0f041p-15, 0x1.239f608ed3b95p-9, -0x1.5146ba7210892p-9, -0x1.85f090383f81ep-5, 0x1.b467d0a5e8d6cp-5,
        0x1.2292a2de5b41ep-2, -0x1.3b1125f2a3a6bp-3, 0x1.ap2
    },
    {
        -0x1.fbcdc1abbec4ap-14, 0x1.1373a83aa97e5p-9, 0x1.9a42414c16c0fp-9, -0x1.80c809f8e6161p-5,
        -0x1.5e70d91aeb761p-6, 0x1.33518b32f2867p-2, 0x1.049770ce74c2ep-55, 0x1.c0ff5f3b4725p2
    },
    {
        -0x1.0d4e2cf16eaccp-12, 0x1.926f162d79e6bp-10, 0x1.f36a34585819ep-8, -0x1.29a1a3860c047p-5,
        -0x1.53de67da77ac2p-4, 0x1.fc8822d612d0fp-3, 0x1.14fd20aa5273ap-3, 0x1.ep2
    },
    {
        -0x1.5bbe0d038d7f9p-12, 0x1.4cd7ac1029435p-11, 0x1.544ab3796347fp-7, -0x1.261453818ee69p-6,
        -0x1.fd760bde8602ap-4, 0x1.237954a8e84a6p-3, 0x1.e089056186183p-3, 0x1p3
    },
    {
        -0x1.59801269605cbp-12, -0x1.8a5708d845ae4p-12, 0x1.5ed78a07337a3p-7, 0x1.d37014efc506cp-9,
        -0x1.14fcc74ef1f38p-3, 0x1.415d3a55dba24p-7, 0x1.17ad48b7328bap-2, 0x1.1p3
    },
    {
        -0x1.093a3ead5284bp-12, -0x1.4be9eb469edd3p-10, 0x1.19d5b58e84184p-7, 0x1.7ce122e170987p-6,
        -0x1.d5700e8437891p-4, -0x1.e1a68d142cef6p-4, 0x1.f66606a53f013p-3, 0x1.2p3
    },
    {
        -0x1.fd09b7bb6d7cp-14, -0x1.e1b453c41aee9p-10, 0x1.2f6d8e69ebf96p-8, 0x1.2cc9b5ef2198fp-5,
        -0x1.1924c35c260dep-4, -0x1.afee691361177p-3, 0x1.4a450180e4a75p-3, 0x1.3p3
    },
    {
        0x1.5b52359de96d5p-15, -0x1.f936128f45104p-10, -0x1.f98e9745e3becp-10, 0x1.4b0c7837d53acp-5,
        0x1.922416fcc33e4p-7, -0x1.ff65454632caep-3, 0x1.0212f4e592523p-53, 0x1.458d0d0bdfc29p3
    },
    {
        0x1.71cbfa96cee8bp-13, -0x1.aff931601f73ep-10, -0x1.3e74a1505b603p-8, 0x1.265cf1e6d8521p-5,
        0x1.996d16f9966b1p-5, -0x1.d546a78db6e0ep-3, -0x1.42f83b8654106p-4, 0x1.5p3
    },
    {
        0x1.1f579868b1c8dp-12, -0x1.f65b844af42a7p-11, -0x1.0c31269272115p-7, 0x1.724722bbbd1dbp-6, 0x1.83f1c4fba855p-4,
        -0x1.3daefb988684p-3, -0x1.6a0e692b762c6p-3, 0x1.6p3
    },
    {
        0x1.407c8f538a906p-12, -0x1.2a76ee12f1ep-14, -0x1.37125c98412d8p-7, 0x1.2a3696e455dap-8, 0x1.d8b1c6c47159dp-4,
        -0x1.87893fc105b05p-5, -0x1.d3b82b96e7bd5p-3, 0x1.7p3
    },
    {
        0x1.169bf44103e74p-12, 0x1.a4cca2c012546p-11, -0x1.1833d6c0e87f6p-7, -0x1.c62b45a89d228p-7,
        0x1.bb1ff72dc9eb8p-4, 0x1.0f9af8f671347p-4, -0x1.c99ea2b162976p-3, 0x1.8p3
    },
    {
        0x1.5ae9dfdde4c6ep-13, 0x1.7f1c38c117dc7p-10, -0x1.725ed02a72c95p-8, -0x1.d04d4de7eec13p-6,
        0x1.3681ddbb341a5p-4, 0x1.47ee70e32ceeep-3, -0x1.52e92c46b451fp-3, 0x1.9p3
    },
    {
        0x1.f215dc11f53bdp-16, 0x1.cd19d5dbb6782p-10, -0x1.91846319552f4p-10, -0x1.2403ef206d71p-5,
        0x1.b6d545de727d6p-6, 0x1.b2dcc9d62169ap-3, -0x1.2005d262e7443p-4, 0x1.ap3
    },
    {
        -0x1.ada63c5ef97d4p-14, 0x1.c96db8c0e4b25p-10, 0x1.597d82e787587p-10, -0x1.25186848b63d9p-5,
        -0x1.0c838e01c61c8p-7, 0x1.bf333787628abp-3, -0x1.05dcc62d0d222p-54, 0x1.aa5baf310e5a2p3
    },
    {
        -0x1.c9ba5d571034bp-13, 0x1.298b2410d1e28p-10, 0x1.a01d663427d91p-8, -0x1.98c2ccc9271aap-6,
        -0x1.276401e354c2cp-4, 0x1.4ad8fc3e29947p-3, 0x1.1126fe3c3df7cp-3, 0x1.cp3
    },
    {
        -0x1.1ea71c0fea254p-12, 0x1.90e84191b64c3p-12, 0x1.0f764e8a5fb42p-7, -0x1.47a90887bf6e8p-7,
        -0x1.94bd7d11b6a11p-4, 0x1.2ff17b7faadc4p-4, 0x1.8c24bf21d2ap-3, 0x1.dp3
    },
    {
        -0x1.139fc5db199eap-12, -0x1.cb75b2964b1cep-12, 0x1.0cef6753ca91fp-7, 0x1.c0047a036dc69p-8,
        -0x1.9e608cfab6e89p-4, -0x1.c915024412e67p-6, 0x1.a40d9610fb167p-3, 0x1.ep3
    },
    {
        -0x1.90439e647e44ep-13, -0x1.28c0d926a3597p-10, 0x1.95f6a8d622c3dp-8, 0x1.60ba5472a18eep-6,
        -0x1.452b5409428b8p-4, -0x1.eb989f07ddaf1p-4, 0x1.5673dd289136p-3, 0x1.fp3
    },
    {
        -0x1.3e24096940cc2p-14, -0x1.938d49fa1a393p-10, 0x1.6bc559870a8d5p-9, 0x1.f67ca9f416423p-6,
        -0x1.429996e7b9239p-5, -0x1.71c39ec5e0da6p-3, 0x1.72444f11db6adp-4, 0x1p4
    },
    {
        0x1.bc7521251022ap-15, -0x1.9e860091fce6p-10, -0x1.fdd3255a272a5p-11, 0x1.09461a0ce8e4ap-5,
        0x1.86dd4586e4f91p-8, -0x1.925c6fc2ca534p-3, -0x1.6eb905ba2abfap-52, 0x1.0787b360508c5p4
    },
    {
        0x1.600b9b36e35e5p-13, -0x1.42d9c6bfc77f9p-10, -0x1.39c0044c7167bp-8, 0x1.abf2ea4a7507ep-6,
        0x1.b634de4194a85p-5, -0x1.5018675d0bd84p-3, -0x1.900cd663e892fp-4, 0x1.1p4
    },
    {
        0x1.f57fbda08dd75p-13, -0x1.3ee0cf47b20c7p-11, -0x1.d3b4fecc3849fp-8, 0x1.c89a71187cfedp-7,
        0x1.5890b563d13e3p-4, -0x1.80173039f2459p-4, -0x1.4eaf21019353dp-3, 0x1.18p4
    },
    {
        0x1.0840685eb16cap-12, 0x1.2d1d4f9373072p-13, -0x1.fa5ab8f53ddd6p-8, -0x1.460ce608f44dep-10,
        0x1.80280fe51b32p-4, -0x1.7da29c070641fp-9, -0x1.81037667e466ap-3, 0x1.2p4
    },
    {
        0x1.ad83d772cd2c9p-13, 0x1.b9b57bc13c9f2p-11, -0x1.a76d49b037e91p-8, -0x1.019fb8929188ep-6,
        0x1.4abaa5cb3afe7p-4, 0x1.60f5f034c7764p-4, -0x1.554404920d38dp-3, 0x1.28p4
    },
    {
        0x1.cdbcec44886b5p-14, 0x1.5b0e5b73accd5p-10, -0x1.e34a3f41bae42p-9, -0x1.ab32a10bf412ap-6,
        0x1.8ef1b7b9a1d6bp-5, 0x1.37b0cabd43cb3p-3, -0x1.b0f3fbde5a4a8p-4, 0x1.3p4
    },
    {
        -0x1.a7a0fdfd43ed1p-17, 0x1.814a285c3c15bp-10, 0x1.8a94b93b685fdp-11, -0x1.e7dc6b3f33b44p-6,
        -0x1.2ccb0702cfba2p-8, 0x1.70c5112b43451p-3, 0x1.a10b2f7b4e69dp-53, 0x1.39da8e7416ca4p4
    },
    {
        -0x1.0111937016c13p-13, 0x1.4ec7123aaa6b9p-10, 0x1.c083993e2805cp-9, -0x1.b28dcf3c7ddbep-6,
        -0x1.32961d59baf61p-5, 0x1.4f39096f0b8dfp-3, 0x1.11bf9c29ff1c6p-4, 0x1.4p4
    },
    {
        -0x1.ad83ca616f039p-13, 0x1.9694625d10f9fp-11, 0x1.8c24bfe9bcb53p-8, -0x1.1401d8988184dp-6,
        -0x1.21385546d4435p-4, 0x1.bc3679e27b9cep-4, 0x1.170cb2adbd0e1p-3, 0x1.48p4
    },
    {
        -0x1.efc85f5025c6fp-13, 0x1.a331ff6083705p-14, 0x1.d54bc16e7bcffp-8, -0x1.b80cf58f9b97fp-9,
        -0x1.606eaa59ec245p-4, 0x1.d1ce1a83b3802p-6, 0x1.5e744e39a0df1p-3, 0x1.5p4
    },
    {
        -0x1.ba4e7d7a8b2efp-13, -0x1.3284cda512523p-11, 0x1.ac6dd1497bb28p-8, 0x1.5c4135b18d6b8p-7,
        -0x1.4974852216a66p-4, -0x1.cf5d5b5a689dap-5, 0x1.4f91ae3f5377ep-3, 0x1.58p4
    },
    {
        -0x1.1c4cda2506ddbp-13, -0x1.242fdc401504fp-10, 0x1.1dcc77cd3849fp-8, 0x1.6452f741a68f2p-6,
        -0x1.c78388f2a0c6bp-5, -0x1.02009ddcaf9cbp-3, 0x1.dff5d1656814ep-4, 0x1.6p4
    },
    {
        -0x1.ecaea82feb581p-16, -0x1.663a18c10b37dp-10, 0x1.36d9ab89797c2p-10, 0x1.c0ee6d604d253p-6,
        -0x1.26063491bef57p-6, -0x1.4ec5431300f4bp-3, 0x1.623d1dcbbba43p-5, 0x1.68p4
    },
    {
        0x1.3857095505e2bp-14, -0x1.6d2ce64c8d72ap-10, -0x1.3a38755904d2cp-11, 0x1.c5df2d2b2ab6cp-6,
        0x1.e165fef399256p-9, -0x1.5664e13a543b4p-3, -0x1.7bc6d5a660382p-54, 0x1.6c294e3d4d8acp4
    },
    {
        0x1.66a562366ba91p-13, -0x1.d71576110d069p-11, -0x1.47a0bcec7e598p-8, 0x1.36ec9376e1b9ep-6,
        0x1.da63dba85650ap-5, -0x1.e845b9538360fp-4, -0x1.c66f7697126efp-4, 0x1.78p4
    },
    {
        0x1.c85b5a9eb46f4p-13, -0x1.3e1e5bf39ba75p-12, -0x1.ac34f8e2d6b92p-8, 0x1.d78195f6add0cp-8,
        0x1.3f2c42ab9061bp-4, -0x1.980f615c52389p-5, -0x1.3b784f2267ac7p-3, 0x1.8p4
    },
    {
        0x1.bacaac0b3aa71p-13, 0x1.72124867242e6p-12, -0x1.a7da6c6db3704p-8, -0x1.8e96932eb98e5p-8,
        0x1.4285a41070b44p-4, 0x1.ee92b8d2a4e89p-6, -0x1.4596793c45b3ap-3, 0x1.88p4
    },
    {
        0x1.43444a75b90f3p-13, 0x1.de12ee64e7cadp-11, -0x1.3da61a885c9abp-8, -0x1.20dc94abec704p-6, 0x1.f004efa2cb51p-5,
        0x1.9ed89be073444p-4, -0x1.00b7a1b3f1382p-3, 0x1.9p4
    },
    {
        0x1.00bba02cf125cp-14, 0x1.4558e51ccf82bp-10, -0x1.1219bfe4f3193p-9, -0x1.94cc1f994d0cep-6, 0x1.cc7520dfd7e3p-6,
        0x1.2c05cc36f9683p-3, -0x1.fc4d365fdbd8ep-5, 0x1.98p4
    },
    {
        -0x1.5f33d6adfd106p-15, 0x1.522d169a2c991p-10, 0x1.06439d7f58ea3p-11, -0x1.aa0d17967038ep-6,
        -0x1.8c8353d926a77p-9, 0x1.40f907990030dp-3, -0x1.61c29fac28fdfp-54, 0x1.9e7570dcea106p4
    },
    {
        -0x1.21785a331c336p-13, 0x1.0260d08652e48p-10, 0x1.05d2e76f65252p-8, -0x1.4f47213695751p-6,
        -0x1.77867de94013dp-5, 0x1.03437bb2c05bp-3, 0x1.64774533725d5p-4, 0x1.a8p4
    },
    {
        -0x1.9c18224d39cfp-13, 0x1.f03b48228a71cp-12, 0x1.7ffeb26a20d1cp-8, -0x1.549af1292ee91p-7,
        -0x1.1c79c7a11bd6dp-4, 0x1.153b013675f6dp-4, 0x1.17b9bb6785728p-3, 0x1.bp4
    },
    {
        -0x1.b17abb887a8afp-13, -0x1.2e1f7097a1aebp-13, 0x1.9b6cbbe9d3771p-8, 0x1.0658585a0c2d4p-9,
        -0x1.36b04cd763d39p-4, -0x1.ab99a71f21201p-8, 0x1.37962b3d52ff6p-3, 0x1.b8p4
    },
    {
        -0x1.5e31d9e99f03cp-13, -0x1.77605b8d0a402p-11, 0x1.5329c9b3e6f19p-8, 0x1.c0bcc2d4129c1p-7,
        -0x1.055622eb67378p-4, -0x1.3ebfba083de1ep-4, 0x1.0b5e9426bf301p-3, 0x1.cp4
    },
    {
        -0x1.7003176cc2c15p-14, -0x1.21d417208eb1ap-10, 0x1.74aacf029f32bp-9, 0x1.666b3ca42c743p-6,
        -0x1.2b54a3f91bf63p-5, -0x1.083a52ffcb588p-3, 0x1.3e43c770e021p-4, 0x1.c8p4
    },
    {
        0x1.a959503fdfbaap-17, -0x1.3f746e352bf68p-10, -0x1.b99ff436887bfp-12, 0x1.92bb3e1c3a03bp-6,
        0x1.4df1def3fb6e7p-9, -0x1.2f2072e300238p-3, -0x1.7e3b01386785fp-55, 0x1.d0bfcf471fcccp4
    },
    {
        0x1.bccf81df6e87fp-14, -0x1.112e5013bb82ap-10, -0x1.8d55311b41b26p-9, 0x1.5e76ecabbb5efp-6,
        0x1.1945cc88ae4e3p-5, -0x1.0c38f9ef7311dp-3, -0x1.0764070ecf766p-4, 0x1.d8p4
    },
    {
        0x1.6c45dfe85ad89p-13, -0x1.41acf18a2505dp-11, -0x1.515fe72ab532p-8, 0x1.ab04edef80ecbp-7, 0x1.f11d957f8d77p-5,
        -0x1.518cbe81bdc39p-4, -0x1.e66783a4dbb98p-4, 0x1.ep4
    },
    {
        0x1.a012923fb42f8p-13, -0x1.6f487f40442c1p-15, -0x1.8858b4029cdedp-8, 0x1.b2a3aa8c534e4p-10,
        0x1.268be606d8c9p-4, -0x1.e132e78b91555p-7, -0x1.25e056f27c937p-3, 0x1.e8p4
    },
    {
        0x1.6eb6874adf132p-13, 0x1.1499ea6b5307fp-11, -0x1.5fa49e84f7fa8p-8, -0x1.4583c7b1adfaep-7,
        0x1.0c7bd8f582e62p-4, 0x1.c6a65e23d01cp-5, -0x1.106f0d8d3c8dcp-3, 0x1.fp4
    },
    {
        0x1.cb433e3e1c4b1p-14, 0x1.f8b7685cd2dd7p-11, -0x1.c52d04977886dp-9, -0x1.364dbb8a19d54p-6,
        0x1.63a4f349c3158p-5, 0x1.c71b821f62c76p-4, -0x1.72772e6dc60bep-4, 0x1.f8p4
    },
    {
        0x1.c3bdf3274aa4cp-17, 0x1.33bb2e786a6fap-10, 0x1.7d5d76b82894bp-12, -0x1.7ed5d73cac645p-6,
        -0x1.1e43c73d644f5p-9, 0x1.1ff5eec371a5ep-3, 0x1.f5efd41f756b6p-53, 0x1.018476e6b2bfp5
    },
    {
        -0x1.3bba6721bd2d4p-14, 0x1.18e9c5990da16p-10, 0x1.14934097853d3p-9, -0x1.6577a96873d9ep-6,
        -0x1.7f247d328ec0ep-6, 0x1.0f8ebe545a03fp-3, 0x1.5e0d2d4aab5cap-5, 0x1.04p5
    },
    {
        -0x1.39e8a92e2a3f2p-13, 0x1.7d1cd5e7c9ab9p-11, 0x1.2101c2ada91d7p-8, -0x1.f08cf3988ce2cp-7,
        -0x1.a7745bc498b04p-5, 0x1.81ee7ff7f9257p-4, 0x1.9c2359648d013p-4, 0x1.08p5
    },
    {
        -0x1.87dd088e44033p-13, 0x1.bba1a83224849p-13, 0x1.6f936e156adfbp-8, -0x1.425ae158b4846p-8,
        -0x1.129f314deaed5p-4, 0x1.12fd48cb347dcp-5, 0x1.10d0126aab03fp-3, 0x1.0cp5
    },
    {
        -0x1.760403cadd672p-13, -0x1.6c6f36f6965e7p-12, 0x1.640bd545ba677p-8, 0x1.a0a1679a61e96p-8,
        -0x1.0e057a6592ab5p-4, -0x1.193fa62808a21p-5, 0x1.105331d049699p-3, 0x1.1p5
    },
    {
        -0x1.0a04b76fa24e9p-13, -0x1.ab18b737aeac8p-11, 0x1.027f67bc4dba8p-8, 0x1.05007f9290ba3p-6,
        -0x1.900bbf381cf8dp-5, -0x1.7c91668f53804p-4, 0x1.9b6c292720237p-4, 0x1.14p5
    },
    {
        -0x1.7cd4a59883179p-15, -0x1.1a9aafd1fa63ep-10, 0x1.8efa09607a3d3p-10, 0x1.605f1d60c99d7p-6,
        -0x1.4a18a6c62c5b3p-6, -0x1.065aa37167f78p-3, 0x1.685fb13f6a3e2p-5, 0x1.18p5
    },
    {
        0x1.5d4268f611818p-15, -0x1.254c2470bc81ap-10, -0x1.497b92f33e853p-12, 0x1.6d9b2f235aa78p-6,
        0x1.f1e180207f14dp-10, -0x1.12dd57c1169d5p-3, -0x1.f89dcedb3ea9bp-52, 0x1.1aa890dc5e97cp5
    },
    {
        0x1.05e53d018c95ap-13, -0x1.ab655087d3dbap-11, -0x1.df16e18af8b44p-9, 0x1.1323fa265677bp-6,
        0x1.5cb6b615c247ep-5, -0x1.a70964a4e5a02p-4, -0x1.51390ff3aeef5p-4, 0x1.2p5
    },
    {
        0x1.69ee40580c78ep-13, -0x1.791375036586fp-12, -0x1.51f44a656bb4cp-8, 0x1.fe8ae1031ac93p-8,
        0x1.f6d7bdcacb19fp-5, -0x1.9b0970989f9ccp-5, -0x1.f195e941ea4dp-4, 0x1.24p5
    },
    {
        0x1.750f9bdc804f6p-13, 0x1.732e8e45d2ff9p-13, -0x1.6127b7e90d777p-8, -0x1.86a01e8d687a3p-9,
        0x1.0a6f9c7b979e6p-4, 0x1.d795279b030b4p-7, -0x1.0b6d8c1ef9a54p-3, 0x1.28p5
    },
    {
        0x1.25bf691995c83p-13, 0x1.5bf5480220cb1p-11, -0x1.1a9100dc28cf5p-8, -0x1.a63420bcb0babp-7,
        0x1.b12ea92508914p-5, 0x1.318daa94403c7p-4, -0x1.b9a4f884ee308p-4, 0x1.2cp5
    },
    {
        0x1.20ad50abcc2e8p-14, 0x1.01c28b2aacd45p-10, -0x1.20d0147455175p-9, -0x1.400a48527c4efp-6,
        0x1.cb55cfef21c9dp-6, 0x1.daaf15de3a8ddp-4, -0x1.e4a779c79975ap-5, 0x1.3p5
    },
    {
        -0x1.265c017e10b41p-16, 0x1.16b60a06bc339p-10, 0x1.2329668ad5de3p-12, -0x1.5e7f212c72e2bp-6,
        -0x1.b628b320e8ba7p-10, 0x1.076826c6c2c16p-3, -0x1.aaaf726a29e97p-54, 0x1.33cc523d5cb69p5
    },
    {
        -0x1.a2209bdb212f5p-14, 0x1.cd47e85b38125p-11, 0x1.7b4a211535e8p-9, -0x1.268724529f092p-6,
        -0x1.11b965fd737b6p-5, 0x1.c164c2c3094cp-4, 0x1.065fb1673bd33p-4, 0x1.38p5
    },
    {
        -0x1.473d8210f9c88p-13, 0x1.ffd2bb835ed31p-12, 0x1.304508cdbfe05p-8, -0x1.50b73bbcea3a2p-7,
        -0x1.c2e74332c1b91p-5, 0x1.0846eb1914dd9p-4, 0x1.bc7f694c1aef7p-4, 0x1.3cp5
    },
    {
        -0x1.6caef7dba8b63p-13, -0x1.1ebf27d87bd34p-16, 0x1.57aaf07884858p-8, -0x1.738ad8d86a0abp-13,
        -0x1.022e5624c7b5ep-4, 0x1.144b9cd0c114bp-8, 0x1.022060b01d3bfp-3, 0x1.4p5
    },
    {
        -0x1.394cc564703aep-13, -0x1.0c6e24ea54b7bp-11, 0x1.2b35d82aa8bcep-8, 0x1.426ee9e396ac6p-7,
        -0x1.c79935189032dp-5, -0x1.cdbe4da64fd54p-5, 0x1.cd9495ca9ec44p-4, 0x1.44p5
    },
    {
        -0x1.75313bf147f2ap-14, -0x1.cbadafc4afb6fp-11, 0x1.6d637f9b83083p-9, 0x1.1c32cc17779f3p-6,
        -0x1.1ce9202a38b04p-5, -0x1.a3db9ba170234p-4, 0x1.2753a7097fe7dp-4, 0x1.48p5
    },
    {
        -0x1.459d142d23cb9p-18, -0x1.0d7932c065f86p-10, -0x1.027568541080dp-12, 0x1.511cb42ed3974p-6,
        0x1.857d26c1a1f44p-10, -0x1.fa8b417d95766p-4, 0x1.451b6225acbfbp-54, 0x1.4cefcf1734b62p5
    },
    {
        0x1.3869293555619p-14, -0x1.e36d7de02f39fp-11, -0x1.17ee4731262b2p-9, 0x1.32cfaa8a3ec35p-6,
        0x1.8ebc021f561d8p-6, -0x1.d17ccb66e8b5fp-4, -0x1.78c82cb753065p-5, 0x1.5p5
    },
    {
        0x1.20b2a2f78b337p-13, -0x1.39097536ba30dp-11, -0x1.0b4984d861313p-8, 0x1.9587a8b31be8ap-7,
        0x1.8a742f2dedbeap-5, -0x1.39c44baa528c8p-4, -0x1.83491746b151ep-4, 0x1.54p5
    },
    {
        0x1.5da89e727a303p-13, -0x1.1299df0b64999p-13, -0x1.483f81beda712p-8, 0x1.956de1d20cfc5p-9,
        0x1.eb686f09f8127p-5, -0x1.5e1d417738d16p-6, -0x1.e9a32014b7af5p-4, 0x1.58p5
    },
    {
        0x1.451db8252608fp-13, 0x1.7b3b33c373a9dp-12, -0x1.34d08419c7a78p-8, -0x1.bfe26a887558ep-8, 0x1.d3d017c90585p-5,
        0x1.3ac2e32a0cd0ap-5, -0x1.d7ae199c18d82p-4, 0x1.5cp5
    },
    {
        0x1.bbf36355a1ecep-14, 0x1.8ef427924c6d8p-11, -0x1.ad39b6ff805dbp-9, -0x1.eb2431cfd55ebp-7,
        0x1.4ac71ef71cadcp-5, 0x1.6938715ebb3a1p-4, -0x1.53299d884dbe4p-4, 0x1.6p5
    },
    {
        0x1.0877ddb8e65bbp-15, 0x1.fd1e7f5a353dap-11, -0x1.156133765d0f2p-10, -0x1.3e00d36c34d9ep-6,
        0x1.cb8350d2852ep-7, 0x1.dae8347a60068p-4, -0x1.f6747839f6391p-6, 0x1.64p5
    },
    {
        -0x1.72f739a6cedf5p-15, 0x1.07f9f96ae977p-10, 0x1.c739f46331bccp-13, -0x1.4522eec011ad1p-6,
        -0x1.5d3644f0c5eefp-10, 0x1.e8727da96126ap-4, -0x1.40032091a4ep-52, 0x1.661315d6b133fp5
    },
    {
        -0x1.ee596ea640d0cp-14, 0x1.67ec7569ba14ap-11, 0x1.c786197310904p-9, -0x1.cdba537873a1fp-7,
        -0x1.4e8a0e9e5341dp-5, 0x1.61fbf9d60bf8bp-4, 0x1.46ead5b4787efp-4, 0x1.6cp5
    },
    {
        -0x1.48bd616580ap-13, 0x1.16d963abec344p-12, 0x1.338dec5b571cep-8, -0x1.7894cbfbf9f2p-8, -0x1.caebed2ab5ad1p-5,
        0x1.2ea8315d8f1dp-5, 0x1.c7d8e6759406dp-4, 0x1.7p5
    },
    {
        -0x1.49a2a7f2f82cap-13, -0x1.c25671bfb2f11p-13, 0x1.37c470813a847p-8, 0x1.ffe60ec9d85aap-9,
        -0x1.d65cd2f3683dp-5, -0x1.57d1cba1ec31ep-6, 0x1.d86df8aeb0fcep-4, 0x1.74p5
    },
    {
        -0x1.f4faad2e85e38p-14, -0x1.4e96cbb746e73p-11, 0x1.e05bc2b26616bp-9, 0x1.99c3ffd000d04p-7,
        -0x1.6f4a04beb3798p-5, -0x1.2bc9fd2083debp-4, 0x1.75d63c58ea293p-4, 0x1.78p5
    },
    {
        -0x1.bd5e8f98dca75p-15, -0x1.d8ff9d584aab8p-11, 0x1.bbe628bb49fd5p-10, 0x1.267c0eb8729e5p-6,
        -0x1.5ff133109ea4bp-6, -0x1.b66a5da6f9c12p-4, 0x1.7290e703deb26p-5, 0x1.7cp5
    },
    {
        0x1.863f163aa34dep-16, -0x1.f646bda0195dep-11, -0x1.a44da5c329092p-13, 0x1.3a5cf8532d906p-6,
        0x1.3b6c1db6704f8p-10, -0x1.d8293aae4a089p-4, -0x1.ccb5a05a6e4aap-52, 0x1.7f36312028ad6p5
    },
    {
        0x1.9709fbdfa5768p-14, -0x1.8c9f6f43db256p-11, -0x1.74e28f44b1a11p-9, 0x1.f95f58a540405p-7,
        0x1.103759a85e798p-5, -0x1.80f736a3121f2p-4, -0x1.08642403ac81ap-4, 0x1.84p5
    },
    {
        0x1.2ead816d69881p-13, -0x1.9599a7b7f03c1p-12, -0x1.1a40dc1623b7ep-8, 0x1.09f1c9bfd92bp-7, 0x1.a3d84395d27a6p-5,
        -0x1.a0630c35cfeabp-5, -0x1.9fc4e3c403e6ep-4, 0x1.88p5
    },
    {
        0x1.4751615e1d7ddp-13, 0x1.32e6cfb67314p-14, -0x1.347b2545f67c4p-8, -0x1.1df1b43674cf8p-10,
        0x1.cfd48dcbbea62p-5, 0x1.1757fd5ef4f1ep-8, -0x1.d05f5d34ff40cp-4, 0x1.8cp5
    },
    {
        0x1.10311afef3ed4p-13, 0x1.0bce94556e201p-11, -0x1.0372244de71fcp-8, -0x1.45b82263df94ap-7,
        0x1.8a844b617086bp-5, 0x1.d930e07cc0b94p-5, -0x1.8f68900c5532ap-4, 0x1.9p5
    },
    {
        0x1.2ef0085ea5068p-14, 0x1.ade68aabba58ap-11, -0x1.279ea5ca1a9ffp-9, -0x1.0acc1a6a9f72ap-6,
        0x1.cbc874c2fdf52p-6, 0x1.8bf579ef8cbf3p-4, -0x1.dba6ad6aeb9ep-5, 0x1.94p5
    },
    {
        -0x1.b9ba79e9eb4b1p-19, 0x1.e57627c5c1614p-11, 0x1.7cc7464a83833p-13, -0x1.3095574aeff4cp-6,
        -0x1.1ec078d5990bp-10, 0x1.c96700b9458eap-4, -0x1.5c457e4a6a2f1p-52, 0x1.985928f96d51ep5
    },
    {
        -0x1.3d1f2e6da241cp-14, 0x1.a741054e99975p-11, 0x1.202367332d276p-9, -0x1.0c4e381313522p-6,
        -0x1.a115f1e5ab026p-6, 0x1.96d002e803f27p-4, 0x1.917043d0a5d1fp-5, 0x1.9cp5
    },
    {
        -0x1.103b1f84aa00cp-13, 0x1.0249d575b1c5dp-11, 0x1.fa0d5614b0524p-9, -0x1.4dbd5ae000ea4p-7,
        -0x1.77272610a6477p-5, 0x1.01b48714bed22p-4, 0x1.725581ea40327p-4, 0x1.ap5
    },
    {
        -0x1.3ea8854f419fbp-13, 0x1.00a61f71cd83p-14, 0x1.2b673fb9f683p-8, -0x1.9cc5a88d52adap-10,
        -0x1.c0dbcedf393fcp-5, 0x1.7a33b0cef1508p-7, 0x1.c01ee80c2d05bp-4, 0x1.a4p5
    },
    {
        -0x1.1f304012ffe4p-13, -0x1.8f9cae1547163p-12, 0x1.10836bcc1c6cfp-8, 0x1.e0e0a8e324bb7p-8,
        -0x1.9c9b3d00b058ep-5, -0x1.5958a1415054dp-5, 0x1.a003321104cf6p-4, 0x1.a8p5
    },
    {
        -0x1.746159d17723ep-14, -0x1.7cf2773bd946ap-11, 0x1.6728a529ab80cp-9, 0x1.d73b5d7bbca9p-7,
        -0x1.14404c7410173p-5, -0x1.5c822d9e25b53p-4, 0x1.1add3a42a1542p-4, 0x1.acp5
    },
    {
        -0x1.046e4ff1d9cd8p-16, -0x1.dcd485d035fd8p-11, -0x1.5f7673b5c66a2p-13, 0x1.27a96119f9a92p-6,
        0x1.062e0e761d72bp-10, -0x1.bbf2468de37p-4, 0x1.13169f65efc7cp-52, 0x1.b17c038c2018cp5
    },
    {
        0x1.c46bb03ef4a55p-15, -0x1.b805f86aa4f6bp-11, -0x1.95793f8bf6981p-10, 0x1.15d965e828cd7p-6,
        0x1.212255a6e1f2ap-6, -0x1.a3b55a5856036p-4, -0x1.11d2fc7a2a8d3p-5, 0x1.b4p5
    },
    {
        0x1.dc55d985f542p-14, -0x1.317e08883be77p-11, -0x1.b922fad03175dp-9, 0x1.87342d197cd9cp-7, 0x1.45da20d28f731p-5,
        -0x1.2b85b8f4d8be1p-4, -0x1.40831cb7250f4p-4, 0x1.b8p5
    },
    {
        0x1.30313becfd19p-13, -0x1.8766b8f0673dep-13, -0x1.1d05d7c8a0f2ep-8, 0x1.09eeb549b9d82p-8, 0x1.aa2810f262e1bp-5,
        -0x1.addf6fbe344f8p-6, -0x1.a85ba02171fep-4, 0x1.bcp5
    },
    {
        0x1.27a60402e52a1p-13, 0x1.07816c7c09c6fp-12, -0x1.178a3e5b76c4bp-8, -0x1.36aa323e0b919p-8,
        0x1.a5ca595da25b8p-5, 0x1.b42b0f3abb553p-6, -0x1.a7df6dce46687p-4, 0x1.cp5
    },
    {
        0x1.ae892387fbaa7p-14, 0x1.4747292805b75p-11, -0x1.9c25184b87a06p-9, -0x1.9343312363816p-7,
        0x1.3abf72976e22fp-5, 0x1.29110b159f875p-4, -0x1.401b1e7b1f23ep-4, 0x1.c4p5
    },
    {
        0x1.4ce330a156e79p-15, 0x1.b97664d231f8ap-11, -0x1.4c5e26d958be7p-10, -0x1.136b142867e0fp-6,
        0x1.07fd23683188cp-6, 0x1.9b113e387f694p-4, -0x1.167f7a05bec4bp-5, 0x1.c8p5
    },
    {
        -0x1.e4ac5376066b2p-16, 0x1.cee8639794cfap-11, 0x1.3f061850d1ad9p-13, -0x1.1f7aabb28ae58p-6,
        -0x1.e1d88141c1806p-11, 0x1.af9cb49dd9556p-4, -0x1.5fb7dbd93e256p-53, 0x1.ca9ec5a82324bp5
    },
    {
        -0x1.92875d4c340b4p-14, 0x1.581e8928a5bbfp-11, 0x1.732cdbeccd336p-9, -0x1.b5fd838de6a1ep-7,
        -0x1.10f8beeffc92cp-5, 0x1.4d653ac87586ap-4, 0x1.0b4d8c9561429p-4, 0x1.dp5
    },
    {
        -0x1.1c7fa868c9957p-13, 0x1.3c44457df7369p-12, 0x1.09dec4fef8a0ap-8, -0x1.9ec6112bfcbd6p-8,
        -0x1.8c7fcea452224p-5, 0x1.44d1895ae1e44p-5, 0x1.89d68ddc41e24p-4, 0x1.d4p5
    },
    {
        -0x1.29cee5ed00027p-13, -0x1.03155b9d4d77ep-13, 0x1.18bf24996a0c5p-8, 0x1.1f0da8814eeb8p-9,
        -0x1.a6652da9153fp-5, -0x1.758e1c42bf836p-7, 0x1.a74eea60e13e2p-4, 0x1.d8p5
    },
    {
        -0x1.dd13ad5ecc829p-14, -0x1.0e0b5f6dd57fp-11, 0x1.c64aa01aad50cp-9, 0x1.4b16c59e1f305p-7,
        -0x1.592d8a004807ap-5, -0x1.e5501e8baef65p-5, 0x1.5d5ad604c9931p-4, 0x1.dcp5
    },
    {
        -0x1.e6d662c5eabcfp-15, -0x1.97e17d404ebbdp-11, 0x1.dabdae3b02fa6p-10, 0x1.fb9dc47e21051p-7,
        -0x1.71086e6ba0e1ep-6, -0x1.79d9810b21ccbp-4, 0x1.7dbbe4c935826p-5, 0x1.ep5
    },
    {
        0x1.67d18adf16ae8p-17, -0x1.be524831aa3fap-11, -0x1.287fd7dea871p-13, 0x1.17f001d8a773ep-6,
        0x1.bcca34d70d808p-11, -0x1.a4407dfc4e7ep-4, -0x1.c3482175f80d7p-56, 0x1.e3c1731d64f1ep5
    },
    {
        0x1.4499f3345e8b5p-14, -0x1.75fdb9a3b36ddp-11, -0x1.2998338280fbp-9, 0x1.d9e4416299945p-7, 0x1.b31be20985355p-6,
        -0x1.672d621f83e67p-4, -0x1.a772481ca5a36p-5, 0x1.e8p5
    },
    {
        0x1.0432713722e34p-13, -0x1.a86ea3ef31e23p-12, -0x1.e5081ff895dcdp-9, 0x1.11feb69dd48f3p-7,
        0x1.68b96ba342239p-5, -0x1.a6f11c81dc134p-5, -0x1.656157263dcb7p-4, 0x1.ecp5
    },
    {
        0x1.25f915dbe1c16p-13, -0x1.2487a0f96bc68p-23, -0x1.146b1c0591a9p-8, 0x1.1ef997ebfa3dcp-12,
        0x1.9ed7f4d8d168ap-5, -0x1.ad74a016b97c4p-9, -0x1.9ebc29bfb5836p-4, 0x1.fp5
    },
    {
        0x1.ffd6273a155e5p-14, 0x1.a4cc9dd8732d4p-12, -0x1.e5752d27c9287p-9, -0x1.001f133abc51dp-7,
        0x1.6f71d77b03019p-5, 0x1.749f2befa7a26p-5, -0x1.728540e977fb9p-4, 0x1.f4p5
    },
    {
        0x1.37b90191476cap-14, 0x1.6ff928a505462p-11, -0x1.2c5fdf583aa8p-9, -0x1.c8b568a8cc01ap-7, 0x1.cdc4d8f4a5222p-6,
        0x1.530a4ffffd5cep-4, -0x1.d8a6b55e687e3p-5, 0x1.f8p5
    },
    {
        0x1.c0d9baf1e2f2p-18, 0x1.b50bc2a2f4b4ap-11, 0x1.11d66f73b2507p-13, -0x1.10f5fec60e47bp-6,
        -0x1.9c3f202e5fd7bp-11, 0x1.99be7449c0a9ap-4, -0x1.977092852774bp-53, 0x1.fce40efb1156ep5
    },
};

}  // namespace orvik::zym::bessel
