// Written by tools/approx from the rule in zym/kernels/bessel/tables.h; do not edit.
#include "zym/kernels/bessel/tables.h"

// clang-format off
namespace orvik::zym::bessel {

alignas(64) const double kI0Rows32[64][8] = {
    {
        0x1.c99d40a0ad84ap-12, -0x1.dd284ca22471dp-21, 0x1.000089e461d23p-6, -0x1.1077df129129p-27, 0x1.00000002fdcbp-2,
        -0x1.55f02e96f8c1ap-41, 0x1p0, 0.0
    },
    {
        0x1.fa92b121a9f4ap-12, 0x1.629c718eb766bp-10, 0x1.1b27fa81de7p-6, 0x1.08fc72c4c4d2fp-5, 0x1.186b72956cdd9p-2,
        0x1.081571e19be0ep-2, 0x1.104072392c8p0, 0x1p-1
    },
    {
        0x1.4f4e24f7158fbp-11, 0x1.8a2c340334d97p-9, 0x1.72ae67f7b814p-6, 0x1.2524f14af5b1cp-4, 0x1.66dd40af01759p-2,
        0x1.215c88bd7ccc2p-1, 0x1.441ce4b386c2dp0, 0x1p0
    },
    {
        0x1.ecc9814bc5516p-11, 0x1.5d9f66d1e9114p-8, 0x1.0d10f4db6c532p-5, 0x1.0232e646eee16p-3, 0x1.fc0bfb04cdebbp-2,
        0x1.f69cfb73fbcb7p-1, 0x1.a58fa6a5a3adap0, 0x1.8p0
    },
    {
        0x1.7cffb44b02b51p-10, 0x1.225d36ccaf407p-7, 0x1.9b880d67b992bp-5, 0x1.a95b230f48943p-3, 0x1.7bf8e9f842326p-1,
        0x1.9733fa1c9a735p0, 0x1.23c97380fce32p1, 0x1p1
    },
    {
        0x1.2d48163ff2ab1p-9, 0x1.d77f1c1a679bbp-7, 0x1.426b01d6ab8ep-4, 0x1.5660f8da42b4fp-2, 0x1.243e588e3e584p0,
        0x1.4223c20c69481p1, 0x1.a51972f665e07p1, 0x1.4p1
    },
    {
        0x1.e1394d3f006bap-9, 0x1.7bd734e74094fp-6, 0x1.fee8f7c1dfd05p-4, 0x1.117d68ec45e9cp-1, 0x1.c81077653f6fap0,
        0x1.fa08091074e03p1, 0x1.385ee7ddb65f1p2, 0x1.8p1
    },
    {
        0x1.821801c9b0234p-8, 0x1.31505487e33ap-5, 0x1.971443ffe0b16p-3, 0x1.b422b54c705eap-1, 0x1.66ba15d231823p1,
        0x1.8d2c6643682ebp2, 0x1.d8347c2b292d4p2, 0x1.cp1
    },
    {
        0x1.36864ca3e9b0cp-7, 0x1.eabdfaa5bb029p-5, 0x1.4563fd1ceedf7p-2, 0x1.5be6573691977p0, 0x1.1b95f5c3a2c11p2,
        0x1.384d89e2fb107p3, 0x1.69a95839cbd73p3, 0x1p2
    },
    {
        0x1.f4418b668d3dfp-7, 0x1.8aa2dcf4187b6p-4, 0x1.04a6b557c4f1dp-1, 0x1.15daaa23d64fep1, 0x1.c1f688e90bd1ep2,
        0x1.ec74834f4c041p3, 0x1.17b2e142798f4p4, 0x1.2p2
    },
    {
        0x1.93694a4f10d6cp-6, 0x1.3da099fe3d31cp-3, 0x1.a2445cac713f1p-1, 0x1.bc7802fbb94ccp1, 0x1.65f6c1c8e4b65p3,
        0x1.855eca5273e8dp4, 0x1.b3d683d659cecp4, 0x1.4p2
    },
    {
        0x1.459e3f2b677d6p-5, 0x1.ffc3c01e0de3cp-3, 0x1.500dfc00038fap0, 0x1.6404adfc685a2p2, 0x1.1d6dcdd291f9ep4,
        0x1.34b48fac10de9p5, 0x1.558ea21e0c16fp5, 0x1.6p2
    },
    {
        0x1.070aed3af92b8p-4, 0x1.9ca74867cc7ccp-2, 0x1.0e533c3df780ap1, 0x1.1d915e822b733p3, 0x1.c816048c69963p4,
        0x1.eabc49626eabbp5, 0x1.0cf00861e7b56p6, 0x1.8p2
    },
    {
        0x1.a94db3d0b8cafp-4, 0x1.4d05c22388344p-1, 0x1.b35faa006f6f8p1, 0x1.cab66340d09a2p3, 0x1.6d06dd170c1aep5,
        0x1.86f0a6b15fca5p6, 0x1.a92be308114cep6, 0x1.ap2
    },
    {
        0x1.581107fda6eacp-3, 0x1.0cf9900c13046p0, 0x1.5ef17448e0c4dp2, 0x1.70dc6c8dcf55ap4, 0x1.249aefa4495b8p6,
        0x1.38140400f61cap7, 0x1.513014c6b9055p7, 0x1.cp2
    },
    {
        0x1.1686b61ef389fp-2, 0x1.b2d14f5979059p0, 0x1.1b24b4802aa3ep3, 0x1.28f00163551a8p5, 0x1.d5c44c8189fadp6,
        0x1.f32b31fb6d639p7, 0x1.0c294bb62234ep8, 0x1.ep2
    },
    {
        0x1.c336a0eec7036p-2, 0x1.5fb47b9c4a3d6p1, 0x1.c944c73930123p3, 0x1.de9055ce072bap5, 0x1.79947928a5142p7,
        0x1.8fdf85ec2cba5p8, 0x1.ab9069e3504fap8, 0x1p3
    },
    {
        0x1.6db0d6b0d74f8p-1, 0x1.1caa98c5c4dddp2, 0x1.7186cde5a8464p4, 0x1.8201511e943f9p6, 0x1.2fd6af901cdcep8,
        0x1.40cf58fdb75d4p9, 0x1.5594ba060b717p9, 0x1.1p3
    },
    {
        0x1.288939a1ded79p0, 0x1.cd18bbef8efp2, 0x1.2ad67d4f95b1ap5, 0x1.379e81443ea47p7, 0x1.e985694070dc3p8,
        0x1.01ba8ad56efabp10, 0x1.1165a799ae33cp10, 0x1.2p3
    },
    {
        0x1.e128ce1b2fdc5p0, 0x1.75a75335e251p3, 0x1.e3abc0fa213b4p5, 0x1.f78aad7131322p7, 0x1.8aba0c01ac5f7p9,
        0x1.9e9cff4245d8ep10, 0x1.b65ec88c7e226p10, 0x1.3p3
    },
    {
        0x1.868cb0cbd46efp1, 0x1.2ef54e836d533p4, 0x1.87a909c7b6f66p6, 0x1.972372f7d2e8ap8, 0x1.3e93c50227589p10,
        0x1.4ddfa035d7aabp11, 0x1.5ff6ee9ed23e4p11, 0x1.4p3
    },
    {
        0x1.3d251749395cbp2, 0x1.eb874bff0ad1cp4, 0x1.3d576cbc030dbp7, 0x1.496be07313a6cp9, 0x1.0155568f1adabp11,
        0x1.0d22287848453p12, 0x1.1af711435e83p12, 0x1.5p3
    },
    {
        0x1.01a555d6cd941p3, 0x1.8eed82491933ap5, 0x1.0144a3d682764p8, 0x1.0ab684e4cfcfp10, 0x1.a00c6610b4118p11,
        0x1.b24dbd1b0118cp12, 0x1.c787d455fe0e4p12, 0x1.6p3
    },
    {
        0x1.a2c95cdeb2357p3, 0x1.43eb809d675a8p6, 0x1.a15a1119efabep8, 0x1.b0256ee521152p10, 0x1.5091ae92aabbfp12,
        0x1.5eb9ad92a66f8p13, 0x1.6f1121d4abebbp13, 0x1.7p3
    },
    {
        0x1.547c14fe4beb6p4, 0x1.0720eceab3582p7, 0x1.52b0ad0629746p9, 0x1.5e4bb61b31604p11, 0x1.107495ccf4466p13,
        0x1.1b75652ced02p14, 0x1.2813b38ec4141p14, 0x1.8p3
    },
    {
        0x1.14ec575cbd332p5, 0x1.abaab027fab4dp7, 0x1.12fb6c678497ap10, 0x1.1c199d0202ca6p12, 0x1.b962b365e39cp13,
        0x1.ca86ffabcb689p14, 0x1.de11573314013p14, 0x1.9p3
    },
    {
        0x1.c29c04fdcb484p5, 0x1.5bae45febe74ep8, 0x1.beb60d69270e7p10, 0x1.cd0f019654ba5p12, 0x1.65bcd3c96be1bp14,
        0x1.731df98ef40eap15, 0x1.8248faaa853a6p15, 0x1.ap3
    },
    {
        0x1.6ebc59eb4f55ap6, 0x1.1ac210e0f646ep9, 0x1.6afe680295179p11, 0x1.764c18110ae0cp13, 0x1.2219cbe1c375bp15,
        0x1.2c9037ec1fa61p16, 0x1.385d5e3d13adp16, 0x1.bp3
    },
    {
        0x1.2a911915a0625p7, 0x1.cc13bc0183935p9, 0x1.2714e11cead75p12, 0x1.2fff8ccefc684p14, 0x1.d6bee6c0499aep15,
        0x1.e7234261fd4e4p16, 0x1.f98a900d2653p16, 0x1.cp3
    },
    {
        0x1.e6485df17c90bp7, 0x1.766bbf5659ab7p10, 0x1.dfedb81a1f1f8p12, 0x1.ee036e8340e8ap14, 0x1.7e1f9f68ee32cp16,
        0x1.8afc51fb0b33cp17, 0x1.995d297797486p17, 0x1.dp3
    },
    {
        0x1.8c1f51cebc531p8, 0x1.30cee0bc26024p11, 0x1.866c1e1f3e613p13, 0x1.918f307ce823ep15, 0x1.3653983b07804p17,
        0x1.406f3b0876de8p18, 0x1.4bb057e41ceefp18, 0x1.ep3
    },
    {
        0x1.42c411747444cp9, 0x1.f06cc79312824p11, 0x1.3db732cd1ae8ap14, 0x1.468807ddc445ep16, 0x1.f84167e84cb6ep17,
        0x1.0415367fad4b9p19, 0x1.0ce843d99d9d1p19, 0x1.fp3
    },
    {
        0x1.070ff1821cdaep10, 0x1.945dd7a261d97p12, 0x1.02a1a54717883p15, 0x1.099df2ecbfc83p17, 0x1.99da806e357cbp18,
        0x1.a6646dfbb3f8bp19, 0x1.b440c74b1f1aap19, 0x1p4
    },
    {
        0x1.ace94350cd023p10, 0x1.497855d1adb62p13, 0x1.a532aec5230ep15, 0x1.b04791efed61bp17, 0x1.4d40abbc7faf4p19,
        0x1.5725acacc0e46p20, 0x1.620ca6ad68febp20, 0x1.08p4
    },
    {
        0x1.5dbe4ed541981p11, 0x1.0c842507815d7p14, 0x1.5712dc502ca2ep16, 0x1.5fdf2332ae7bep18, 0x1.0f1125c0728e3p20,
        0x1.16e26cb1bf585p21, 0x1.1f78d1c90c755p21, 0x1.1p4
    },
    {
        0x1.1d40dc92b90efp12, 0x1.b5c9be5490dbdp14, 0x1.1784777600e5ap17, 0x1.1e82365d9ccb9p19, 0x1.b91f7ff08a1f7p20,
        0x1.c57d802e302a9p21, 0x1.d30969fecbef6p21, 0x1.18p4
    },
    {
        0x1.d1695c0871eddp12, 0x1.64f84fe4fd67dp15, 0x1.c79765fcab76ap17, 0x1.d2b63d0e941p19, 0x1.670ceb315248ep21,
        0x1.70d7f5000ff9p22, 0x1.7b8ab1aee1372p22, 0x1.2p4
    },
    {
        0x1.7bc19a20b9d2bp13, 0x1.23236d075bd89p16, 0x1.736215a037f22p18, 0x1.7c3c1668da8afp20, 0x1.2456cfca70e26p22,
        0x1.2c1a1bbea8ef3p23, 0x1.348f930331549p23, 0x1.28p4
    },
    {
        0x1.35ed85228a08ep14, 0x1.daffe2cbbab32p16, 0x1.2ed01415a0d4p19, 0x1.35dd2a4d7b621p21, 0x1.dc2fe22d643a1p22,
        0x1.e8819b9d318p23, 0x1.f5e5dce197dbbp23, 0x1.3p4
    },
    {
        0x1.f9fa138e9c27bp14, 0x1.8391ad0a6cd56p17, 0x1.edebb60f21986p19, 0x1.f929b6fc23729p21, 0x1.83efef212f9c6p23,
        0x1.8db8ad4c8e917p24, 0x1.98554d56ffac6p24, 0x1.38p4
    },
    {
        0x1.9d18d8fdb6612p15, 0x1.3c4bbd9053be6p18, 0x1.92e8bf777eeedp20, 0x1.9be0b85290ed5p22, 0x1.3c20c6f3bb882p24,
        0x1.43e7deb887808p25, 0x1.4c52c5479f734p25, 0x1.4p4
    },
    {
        0x1.5153df1c91a56p16, 0x1.022e27588473cp19, 0x1.48bcf21805391p21, 0x1.4fe5dafaca28ap23, 0x1.01ad82bc87e44p25,
        0x1.07dda3f160508p26, 0x1.0e8c9d7565733p26, 0x1.48p4
    },
    {
        0x1.1380e9f9f11b9p17, 0x1.a590a67a933cap19, 0x1.0c46b508ef379p22, 0x1.11feea31772a1p24, 0x1.a42c5c36df864p25,
        0x1.ae071bd278dbap26, 0x1.b8a69a7b04a34p26, 0x1.5p4
    },
    {
        0x1.c218a3e21d44ap17, 0x1.583c28264995bp20, 0x1.b5f4a5909bed2p22, 0x1.bf197a437262ep24, 0x1.56a6d3b13783fp26,
        0x1.5e8125da0004ap27, 0x1.66f4468f60b1ap27, 0x1.58p4
    },
    {
        0x1.6fb9c0e681f87p18, 0x1.1923a56d4339cp21, 0x1.658b8583a9911p23, 0x1.6cdbcf039f0c4p25, 0x1.177f0739bcaa7p27,
        0x1.1dc233747c441p28, 0x1.247c381a3eef2p28, 0x1.6p4
    },
    {
        0x1.2c79eec5cc923p19, 0x1.cb4b64d7c8e0fp21, 0x1.23f399c550c65p24, 0x1.29ce01f5e6ab8p26, 0x1.c80fca83771d9p27,
        0x1.d20e9532c8fe2p28, 0x1.dcc67bcc9ea42p28, 0x1.68p4
    },
    {
        0x1.eb20098234a1cp19, 0x1.773bd0e0dcc0fp22, 0x1.dcde03c4f89d7p24, 0x1.e63dbed10864bp26, 0x1.74297bf41a4ecp28,
        0x1.7c24e5d9555acp29, 0x1.84b0a7541a674p29, 0x1.7p4
    },
    {
        0x1.916d89d70c758p20, 0x1.329b21846861bp23, 0x1.8584b88eb742cp25, 0x1.8d07606fdf242p27, 0x1.2fc210f377dd5p29,
        0x1.3622f9e1dfc43p30, 0x1.3cf49367fbfc8p30, 0x1.78p4
    },
    {
        0x1.4828b06e49765p21, 0x1.f522c451861fp23, 0x1.3e38c0f739ce5p26, 0x1.443dfca70fb35p28, 0x1.eff311baeae26p29,
        0x1.fa2674e0ab92p30, 0x1.028500a07b95bp31, 0x1.8p4
    },
    {
        0x1.0c4cbe3cad002p22, 0x1.999a95f9ed528p24, 0x1.0404215c71943p27, 0x1.08d83bd4c4874p29, 0x1.94f255a7d09b2p30,
        0x1.9d1bb128628cep31, 0x1.a5cee4b66f3a4p31, 0x1.88p4
    },
    {
        0x1.b6c6e9c99e603p22, 0x1.4ed6712df10a5p25, 0x1.a8fa8ed817b94p27, 0x1.b0ba4a7d5874cp29, 0x1.4ab383f32ad25p31,
        0x1.513c2bb195c8dp32, 0x1.5830cd5e77602p32, 0x1.9p4
    },
    {
        0x1.66d5666477153p23, 0x1.11c1a26f0520dp26, 0x1.5b59cd3c3fb5cp28, 0x1.619253ab70944p30, 0x1.0e1d7135380c9p32,
        0x1.1359403e9516ep33, 0x1.18e9b9fea8a9ap33, 0x1.98p4
    },
    {
        0x1.257df527eb96cp24, 0x1.bfb1d9d63e0e5p26, 0x1.1bf1730487636p29, 0x1.20f07f7f88117p31, 0x1.b95491fab5833p32,
        0x1.c1b81e2b7c456p33, 0x1.caa09320d4957p33, 0x1.ap4
    },
    {
        0x1.e027c99b22b37p24, 0x1.6e1f33008208ap27, 0x1.d048eef9c1708p29, 0x1.d85064bb1dceap31, 0x1.689811b9a914cp33,
        0x1.6f52168ae0e5ep34, 0x1.7674867db65b5p34, 0x1.a8p4
    },
    {
        0x1.88d0a8a476ccp25, 0x1.2b7312a79869cp28, 0x1.7ba275e5858fap30, 0x1.8216bfafbef11p32, 0x1.26ac4f509ce57p34,
        0x1.2c11ce9415ee4p35, 0x1.31c969ebd8413p35, 0x1.bp4
    },
    {
        0x1.4165fe527dfb2p26, 0x1.e9e56f155cf5p28, 0x1.367554ad14b7cp31, 0x1.3ba613447c127p33, 0x1.e1adb8aae3c38p34,
        0x1.ea576a0f18d02p35, 0x1.f3825ac42bb15p35, 0x1.b8p4
    },
    {
        0x1.06feaac4b15cdp27, 0x1.90c79312132e2p29, 0x1.fbd691110195dp31, 0x1.021843e352834p34, 0x1.89bcd9b2d5d9ap35,
        0x1.90b1b0c241a7dp36, 0x1.980c56dbbc1ddp36, 0x1.cp4
    },
    {
        0x1.ae744c656dccep27, 0x1.47e954ea4bbd8p30, 0x1.9f674e1046e48p32, 0x1.a61ff8edf4152p34, 0x1.41e5b57334a5ap36,
        0x1.477c647627369p37, 0x1.4d635628de64dp37, 0x1.c8p4
    },
    {
        0x1.604ec3425ad43p28, 0x1.0c5253c038d35p31, 0x1.53d56601212ddp33, 0x1.593ebcd90e0ddp35, 0x1.073347739c7e8p37,
        0x1.0bb127a7ac007p38, 0x1.106e5a77a6c37p38, 0x1.dp4
    },
    {
        0x1.206095ad22fefp29, 0x1.b72b2b85e8fbep31, 0x1.160b0940cae1ep34, 0x1.1a66cd3d5b714p36, 0x1.ae782b9d78078p37,
        0x1.b5b15064c7a55p38, 0x1.bd4e73c0c028cp38, 0x1.d8p4
    },
    {
        0x1.d8245dd3d8bd6p29, 0x1.676fc7ec038fbp32, 0x1.c706a997b1237p34, 0x1.ce0c9791b72c4p36, 0x1.6010ba34fdf42p38,
        0x1.65e02892858afp39, 0x1.6bfe996abff48p39, 0x1.ep4
    },
    {
        0x1.828a907aadeb1p30, 0x1.2635c3d6d70e8p33, 0x1.745f465add67cp35, 0x1.7a08597f5ad97p37, 0x1.1ffa1412b3f75p39,
        0x1.24a705ca9ab01p40, 0x1.299270955891p40, 0x1.e8p4
    },
    {
        0x1.3c7d577a9f668p31, 0x1.e1b002df214e7p33, 0x1.30c3983929963p36, 0x1.3553e40eaecadp38, 0x1.d72a6b2ff9b41p39,
        0x1.deb1873ec40e2p40, 0x1.e69b800ddbe76p40, 0x1.fp4
    },
    {
        0x1.03281c91dcf75p32, 0x1.8a5a591c3771ap34, 0x1.f2e9a1561fa2p36, 0x1.fa461509afe3bp38, 0x1.817cb60e0ca2ep40,
        0x1.878ca1830359ep41, 0x1.8dead38da289bp41, 0x1.f8p4
    },
};

}  // namespace orvik::zym::bessel
