// Written by tools/approx from the rule in zym/kernels/bessel/tables.h; do not edit.
#include "zym/kernels/bessel/tables.h"

// clang-format off
namespace orvik::zym::bessel {

alignas(64) const double kI1Rows32[64][8] = {
    {
        0x1.5616ec00ce1e2p-15, 0x1.53d4132998e34p-9, 0x1.8fc2e1d4a2c52p-20, 0x1.ffffd1232ba62p-5, 0x1.011e2a9f3a946p-29,
        0x1.ffffffffe36e3p-2, 0.0, 0.0
    },
    {
        0x1.9df384e1fe3e8p-13, 0x1.7c1da52148d29p-9, 0x1.ba65d131f5c8dp-8, 0x1.1b27e8a6007d6p-4, 0x1.8d7ade095636cp-4,
        0x1.186b729866c38p-1, 0x1.081571ddea056p-2, 0x1p-1
    },
    {
        0x1.cd738042c75bap-12, 0x1.f734af93a0befp-9, 0x1.ebc012a799cddp-7, 0x1.72ae502afd718p-4, 0x1.b7b7a18bf6fe9p-3,
        0x1.66dd40b2f8cecp-1, 0x1.215c88b95e67ep-1, 0x1p0
    },
    {
        0x1.9b042eeae5499p-11, 0x1.71c61c23506cbp-8, 0x1.b42b1642c7672p-6, 0x1.0d10e33d79318p-3, 0x1.834c8af2072c7p-2,
        0x1.fc0bfb0aad143p-1, 0x1.f69cfb6ca57ecp-1, 0x1.8p0
    },
    {
        0x1.570ad5cfebc69p-10, 0x1.1de4573f6e5b1p-7, 0x1.6a3cc375ea6cap-5, 0x1.9b87f1fc133edp-3, 0x1.3f0483a21f055p-1,
        0x1.7bf8e9fcd403cp0, 0x1.9733fa167ac95p0, 0x1p1
    },
    {
        0x1.17f902af0e1f2p-9, 0x1.c42648acfec7p-7, 0x1.2619793648b15p-4, 0x1.426aec083a88dp-2, 0x1.00c8dc60af436p0,
        0x1.243e5891e0a72p1, 0x1.4223c20769d7p1, 0x1.4p1
    },
    {
        0x1.c56e7281395fcp-9, 0x1.6919a6517e8f8p-6, 0x1.d9da1f971cb39p-4, 0x1.fee8d4c1105ap-2, 0x1.9a3c54067bf37p0,
        0x1.c810776b14bedp1, 0x1.fa0809085cc04p1, 0x1.8p1
    },
    {
        0x1.6e46048b20c03p-8, 0x1.21b79e1ee56b8p-5, 0x1.7ce0370286feap-3, 0x1.971427caadc47p-1, 0x1.471a341ca079ep1,
        0x1.66ba15d6e4e9cp2, 0x1.8d2c663cde5c4p2, 0x1.cp1
    },
    {
        0x1.27bc67734cda9p-7, 0x1.d20631684f78ap-5, 0x1.321852bee8f3ep-2, 0x1.4563e655d3f65p0, 0x1.04ece50c2df2ap2,
        0x1.1b95f5c76e803p3, 0x1.384d89ddb3976p3, 0x1p2
    },
    {
        0x1.ddb55d554a425p-7, 0x1.7762448aac2a9p-4, 0x1.ec4bb0a3201fap-2, 0x1.04a6a2ed86a3p1, 0x1.a0c838c6b9a87p2,
        0x1.c1f688ef2f10cp3, 0x1.ec748346c4f49p3, 0x1.2p2
    },
    {
        0x1.820af086fef08p-6, 0x1.2eb6b45e6fc52p-3, 0x1.8c39f6f4e0fdep-1, 0x1.a2443edf6019ep1, 0x1.4d5a30c1ee453p3,
        0x1.65f6c1cddc161p4, 0x1.855eca4b8fc01p4, 0x1.4p2
    },
    {
        0x1.382a1d23d2dep-5, 0x1.e8adb880882cap-3, 0x1.3f33215feebc6p0, 0x1.500de3deb1292p2, 0x1.0b03a81b58f23p4,
        0x1.1d6dcdd6976b2p5, 0x1.34b48fa67e53p5, 0x1.6p2
    },
    {
        0x1.f92bd66bcfb17p-5, 0x1.8ac486dfe48e5p-2, 0x1.016140894be3cp1, 0x1.0e5328b11a0b3p3, 0x1.ac5a4aa366596p4,
        0x1.c8160492edb1dp5, 0x1.eabc49596a1d9p5, 0x1.8p2
    },
    {
        0x1.9901d10cddb22p-4, 0x1.3f248a9f3fb3cp-1, 0x1.9f6c1c1bf7fbcp1, 0x1.b35f8a4e0e099p3, 0x1.5808fbba289ddp5,
        0x1.6d06dd1c545aep6, 0x1.86f0a6aa12b13p6, 0x1.ap2
    },
    {
        0x1.4b579fc5a8bfdp-3, 0x1.022f0d8e7c20cp0, 0x1.4f8677923e896p2, 0x1.5ef15a93901d1p4, 0x1.14a5795800299p6,
        0x1.249aefa8921fcp7, 0x1.381403fb0bee5p7, 0x1.cp2
    },
    {
        0x1.0c92bf67a3e17p-2, 0x1.a201b33feca78p0, 0x1.0f32f48ae60a1p3, 0x1.1b249fa3ae7c9p5, 0x1.bd6842cf86d79p6,
        0x1.d5c44c887df29p7, 0x1.f32b31f1d6b7bp7, 0x1.ep2
    },
    {
        0x1.b39dfd3e379a1p-2, 0x1.529622e2461adp1, 0x1.b6b842fd50c93p3, 0x1.c944a55a05b34p5, 0x1.66ec74d8f22a6p7,
        0x1.7994792e4a1d8p8, 0x1.8fdf85e46607cp8, 0x1p3
    },
    {
        0x1.6173cf0b21c18p-1, 0x1.12694fa5b6369p2, 0x1.6317ea9517968p4, 0x1.7186b26311eadp6, 0x1.2181276ea3bdcp8,
        0x1.2fd6af94b27fcp9, 0x1.40cf58f76825ap9, 0x1.1p3
    },
    {
        0x1.1eeb2c1a4a20cp0, 0x1.bd09728e42941p2, 0x1.1f95c4c0d1248p5, 0x1.2ad666f55b84ap7, 0x1.d36e070cc04eep8,
        0x1.e9856947e40f8p9, 0x1.01ba8ad04fcf9p10, 0x1.2p3
    },
    {
        0x1.d205f5af59a9bp0, 0x1.690f0e8378b4ap3, 0x1.d21786fa350bp5, 0x1.e3ab9ca3b05c4p7, 0x1.79a83a3d4da38p9,
        0x1.8aba0c07ba9c2p10, 0x1.9e9cff39f433ep10, 0x1.3p3
    },
    {
        0x1.7a9f90b0f85e4p1, 0x1.2510eaa9b79c9p4, 0x1.79e7d222b16a4p6, 0x1.87a8ec3b948bp8, 0x1.315ac3da0f44p10,
        0x1.3e93c50713e59p11, 0x1.4ddfa02f156cfp11, 0x1.4p3
    },
    {
        0x1.33bc76882b579p2, 0x1.dbf7bb5975023p4, 0x1.328fb8228a12p7, 0x1.3d5754b331353p9, 0x1.ee221ad761dc8p10,
        0x1.015556931c363p12, 0x1.0d222872c9f8bp12, 0x1.5p3
    },
    {
        0x1.f46ddbbf6b418p2, 0x1.82ac282a9691ep5, 0x1.f19cd3d554bf2p7, 0x1.0144904801cd6p10, 0x1.901203a4ffc57p11,
        0x1.a00c661738b82p12, 0x1.b24dbd12123a1p12, 0x1.6p3
    },
    {
        0x1.9708dbd336c99p3, 0x1.3a41790e7a92cp6, 0x1.940c58ca89b9p8, 0x1.a159f143d4f5ap10, 0x1.441c44387cf15p12,
        0x1.5091ae97f8ef7p13, 0x1.5eb9ad8b625cdp13, 0x1.7p3
    },
    {
        0x1.4b2eb36ecb915p4, 0x1.feff3ff60117bp6, 0x1.4837c1a8624e7p9, 0x1.52b0931a59e39p11, 0x1.06b8f07d1012p13,
        0x1.107495d1461f2p14, 0x1.1b7565270390fp14, 0x1.8p3
    },
    {
        0x1.0d8d736f92b65p5, 0x1.9f9acfafed7fep7, 0x1.0aba4ad0f2e4p10, 0x1.12fb574b1323p12, 0x1.aa26ac79e6139p13,
        0x1.b962b36cece44p14, 0x1.ca86ffa22bccdp14, 0x1.9p3
    },
    {
        0x1.b6eaf8860f592p5, 0x1.5222e12dcdf9ep8, 0x1.b1aebb71677ccp10, 0x1.beb5eb038ffefp12, 0x1.59cb7614f1efep14,
        0x1.65bcd3cf27516p15, 0x1.731df9871e494p15, 0x1.ap3
    },
    {
        0x1.657452e7959aap6, 0x1.1332a348594d8p9, 0x1.60b31bff8e9cep11, 0x1.6afe4bfb18c67p13, 0x1.18b93d1fe7c4ap15,
        0x1.2219cbe66f3dep16, 0x1.2c9037e5be26bp16, 0x1.bp3
    },
    {
        0x1.23313a7eed089p7, 0x1.c01692d9d6b01p9, 0x1.1ef05ad04b214p12, 0x1.2714ca4448322p14, 0x1.c7ff99647a3ebp15,
        0x1.d6bee6c7e6ef2p16, 0x1.e723425797ebdp16, 0x1.cp3
    },
    {
        0x1.da8dd3cb7a93p7, 0x1.6ce7f2a112683p10, 0x1.d3087c6afb954p12, 0x1.dfed92d9856cp14, 0x1.7282cc11f751ep16,
        0x1.7e1f9f6f2374ap17, 0x1.8afc51f292955p17, 0x1.dp3
    },
    {
        0x1.82c9b6cf881fap8, 0x1.293fff12aa477p11, 0x1.7c33696056e4cp13, 0x1.866bffbe63133p15, 0x1.2d2b92f9b4b1ap17,
        0x1.36539840178p18, 0x1.406f3b018f531p18, 0x1.ep3
    },
    {
        0x1.3b54cd3109d84p9, 0x1.e4682e75e9b3ep11, 0x1.359b13ecb83dep14, 0x1.3db71a05da53cp16, 0x1.e9cc57cbf5d09p17,
        0x1.f84167f08ee5ap18, 0x1.0415367a0c4b5p19, 0x1.fp3
    },
    {
        0x1.0122e8dee30cap10, 0x1.8acdd3203c3acp12, 0x1.f861d440b002ep14, 0x1.02a191100e397p17, 0x1.8e6d2a5bebddcp18,
        0x1.99da8074f24ecp19, 0x1.a6646df285d93p19, 0x1p4
    },
    {
        0x1.a3752e79f4f4ep10, 0x1.41daf005a6eddp13, 0x1.9af5bbcc1e66ap15, 0x1.a5328dc77476ep17, 0x1.4435dfffcaf4fp19,
        0x1.4d40abc1ff244p20, 0x1.5725aca5440e2p20, 0x1.08p4
    },
    {
        0x1.5632a4e09461ap11, 0x1.0672a2648145bp14, 0x1.4eede15352527p16, 0x1.5712c1631b641p18, 0x1.07e783a2774bfp20,
        0x1.0f1125c4ef45bp21, 0x1.16e26caba3921p21, 0x1.1p4
    },
    {
        0x1.173a07cd9b838p12, 0x1.ac1be8e991834p14, 0x1.1108851dd5e3bp17, 0x1.1784617b0c0b1p19, 0x1.adc394d82212bp20,
        0x1.b91f7ff7dd90ep21, 0x1.c57d802438261p21, 0x1.18p4
    },
    {
        0x1.c7c744257a9dbp12, 0x1.5d3ee10b5be44p15, 0x1.bd423fd2f52dbp17, 0x1.c79742182ac12p19, 0x1.5e08e4b73a30dp21,
        0x1.670ceb374d87fp22, 0x1.70d7f4f7ed28cp22, 0x1.2p4
    },
    {
        0x1.740d7a0487c91p13, 0x1.1cf848ce0e024p16, 0x1.6b24fd66c0c87p18, 0x1.7361f850bae98p20, 0x1.1d2d3da41426p22,
        0x1.2456cfcf53538p23, 0x1.2c1a1bb804bb2p23, 0x1.28p4
    },
    {
        0x1.2fc37eefda89cp14, 0x1.d1241f5b3683bp16, 0x1.283d373519fc1p19, 0x1.2ecffc2519955p21, 0x1.d0cc08a9ceab7p22,
        0x1.dc2fe2355ed77p23, 0x1.e8819b92593ap23, 0x1.3p4
    },
    {
        0x1.f01b4ba3a1a53p14, 0x1.7bafb5ad02a54p17, 0x1.e36c5a22ca7dbp19, 0x1.edeb8ef26f27bp21, 0x1.7adf85057929ep23,
        0x1.83efef27b4351p24, 0x1.8db8ad43b377p24, 0x1.38p4
    },
    {
        0x1.9530c4b39967ep15, 0x1.35fd3ed33279cp18, 0x1.8a85a1f32aa73p20, 0x1.92e89f82e43c7p22, 0x1.34e8bb119fefap24,
        0x1.3c20c6f90ed04p25, 0x1.43e7deb14bddep25, 0x1.4p4
    },
    {
        0x1.4afda1b55ff2dp16, 0x1.fa4371bab6ba1p18, 0x1.4208650d4534dp21, 0x1.48bcd7fb3eedcp23, 0x1.f7d9183d9ce91p24,
        0x1.01ad82c0e1e57p26, 0x1.07dda3eb77c1cp26, 0x1.48p4
    },
    {
        0x1.0e6c142434042p17, 0x1.9d7a48828d13bp19, 0x1.06e98d92ca4dcp22, 0x1.0c469fb1a912ap24, 0x1.9afea076abec6p25,
        0x1.a42c5c3dfc698p26, 0x1.ae071bc8d1507p26, 0x1.5p4
    },
    {
        0x1.b9f1674afd107p17, 0x1.51c0ffe70d892p20, 0x1.ad5e7765711dep22, 0x1.b5f482ad5dc5p24, 0x1.4f5350f40dc8fp26,
        0x1.56a6d3b707e3bp27, 0x1.5e8125d21c6eep27, 0x1.58p4
    },
    {
        0x1.692e70aad4a5cp18, 0x1.13f15850e9137p21, 0x1.5eab16ace51a3p23, 0x1.658b68fe5732p25, 0x1.11a506c8c6507p27,
        0x1.177f073e7d6aap28, 0x1.1dc2336e09be9p28, 0x1.6p4
    },
    {
        0x1.2738a26ae2034p19, 0x1.c2f51626fa4cfp21, 0x1.1e70fbe9b3324p24, 0x1.23f38273a7076p26, 0x1.beb54a175d67dp27,
        0x1.c80fca8b3cc7cp28, 0x1.d20e95283ecc4p28, 0x1.68p4
    },
    {
        0x1.e2ae7ff2999a5p19, 0x1.708ae13f39ccap22, 0x1.d40837e7d500ap24, 0x1.dcdddda1ee84p26, 0x1.6cae8946fb0e7p28,
        0x1.74297bfa754c7p29, 0x1.7c24e5d0b79a9p29, 0x1.7p4
    },
    {
        0x1.8aa449ca6e0e6p20, 0x1.2d3bbdeb93187p23, 0x1.7e6e85721100bp25, 0x1.8584995e42295p27, 0x1.29c5b7e22c403p29,
        0x1.2fc210f8aa755p30, 0x1.3622f9dad456ep30, 0x1.78p4
    },
    {
        0x1.42b3dd9a9c836p21, 0x1.ec8110cd91926p23, 0x1.3888df201f2ccp26, 0x1.3e38a774888bfp28, 0x1.e65d48c0a3671p29,
        0x1.eff311c36b89ap30, 0x1.fa2674d526359p30, 0x1.8p4
    },
    {
        0x1.07e92ff456f36p22, 0x1.92aac42d8626dp24, 0x1.fee6804fa2356p26, 0x1.04040c7e2f65cp29, 0x1.8d449959e0152p30,
        0x1.94f255aec528bp31, 0x1.9d1bb11ef6854p31, 0x1.88p4
    },
    {
        0x1.afb6b6ca640fdp22, 0x1.4942b6ec79413p25, 0x1.a1a4cd6ce64ffp27, 0x1.a8fa6cb2e56eep29, 0x1.448bebe3e7356p31,
        0x1.4ab383f8db862p32, 0x1.513c2ba9e0f29p32, 0x1.9p4
    },
    {
        0x1.6125d600f11cep23, 0x1.0d454d829b2fep26, 0x1.5574e09609506p28, 0x1.5b59b14c1d1fap30, 0x1.092de94eccc52p32,
        0x1.0e1d7139dff01p33, 0x1.1359403847482p33, 0x1.98p4
    },
    {
        0x1.20e9d4876a8c1p24, 0x1.b879e7836290dp26, 0x1.1734660782b71p29, 0x1.1bf15c27f0c6fp31, 0x1.b16904e09d569p32,
        0x1.b95492025427fp33, 0x1.c1b81e212bbbp33, 0x1.ap4
    },
    {
        0x1.d8c75a20e054cp24, 0x1.684fbc65d30fbp27, 0x1.c8a9c08d4adfcp29, 0x1.d048c98e66368p31, 0x1.623c848509333p33,
        0x1.689811bfe576p34, 0x1.6f52168270678p34, 0x1.a8p4
    },
    {
        0x1.82dee3c290cd7p25, 0x1.26c554f789108p28, 0x1.75809c852d35p30, 0x1.7ba257451950ap32, 0x1.21913e6256a77p34,
        0x1.26ac4f55b77c8p35, 0x1.2c11ce8d2e049p35, 0x1.bp4
    },
    {
        0x1.3c9b49b0aad52p26, 0x1.e25bd8949be27p28, 0x1.3185cdcd4c451p31, 0x1.36753b9b47d65p33, 0x1.d9796934a57b7p34,
        0x1.e1adb8b33eca3p35, 0x1.ea576a03cb2b9p35, 0x1.b8p4
    },
    {
        0x1.03217e29bdb9bp27, 0x1.8ab4bb2183cp29, 0x1.f3e3dba981374p31, 0x1.fbd668055d251p33, 0x1.8324a448c66c4p35,
        0x1.89bcd9b9aced4p36, 0x1.90b1b0b90150ep36, 0x1.cp4
    },
    {
        0x1.a838858897b89p27, 0x1.4304083b3b01p30, 0x1.99006d9b17851p32, 0x1.9f672c758f89p34, 0x1.3c982dd1331f7p36,
        0x1.41e5b578ce459p37, 0x1.477c646e949e9p37, 0x1.c8p4
    },
    {
        0x1.5b472e7b74c2ap28, 0x1.085fc2af91deap31, 0x1.4eace32762e3bp33, 0x1.53d54a7d5866ep35, 0x1.02ef377bed83cp37,
        0x1.0733477832537p38, 0x1.0bb127a17904fp38, 0x1.dp4
    },
    {
        0x1.1c515df0481d5p29, 0x1.b0ccf65f3305p31, 0x1.11e2af466b07ep34, 0x1.160af2b8ebc7p36, 0x1.a79a7861cdd3bp37,
        0x1.ae782ba4fa6fcp38, 0x1.b5b1505aa11bfp38, 0x1.d8p4
    },
    {
        0x1.d1965b5dc7513p29, 0x1.624c7b0f1b75bp32, 0x1.c05254dc8753fp34, 0x1.c70684b0b54c1p36, 0x1.5a89a9c820dd1p38,
        0x1.6010ba3b2446p39, 0x1.65e0288a35eap39, 0x1.ep4
    },
    {
        0x1.7d3f73fdd8c34p30, 0x1.22103910ea059p33, 0x1.6ef6fd0f2a49fp35, 0x1.745f2821c56a3p37, 0x1.1b867110946ap39,
        0x1.1ffa1417bd562p40, 0x1.24a705c3cc78bp40, 0x1.e8p4
    },
    {
        0x1.3836b159eab4ap31, 0x1.dafe076bfa2a6p33, 0x1.2c66c493f49c2p36, 0x1.30c37f77f1948p38, 0x1.cffe2154e51f5p39,
        0x1.d72a6b3839df1p40, 0x1.deb187339e909p40, 0x1.fp4
    },
    {
        0x1.ff67403ad14d7p31, 0x1.84f23e6c246a4p34, 0x1.ebdeffb37afb9p36, 0x1.f2e978c808967p38, 0x1.7bb4cd6779613p40,
        0x1.817cb614ceca1p41, 0x1.878ca179e25acp41, 0x1.f8p4
    },
};

}  // namespace orvik::zym::bessel
