// Written by tools/approx from the rule in zym/kernels/bessel/tables.h; do not edit.
#include "zym/kernels/bessel/tables.h"

// clang-format off
namespace orvik::zym::bessel {

alignas(64) const double kY0Rows32[176][8] = {
    {
        -0x1.2f3f1b71bff73p26, 0x1.828f7bf3c084ap21, -0x1.ff7930bd24e1ep16, 0x1.6a3a130885eafp12, -0x1.203feaaea9699p8,
        0x1.3374a812fec56p4, -0x1.1ed1a0204ed41p1, 0x1.1p-5
    },
    {
        -0x1.36ed05de52775p25, 0x1.bafe5150bad94p20, -0x1.47ca194a8fc13p16, 0x1.0370a75af125p12, -0x1.cd5cdb879bfa4p7,
        0x1.1338f13c89c95p4, -0x1.15bbb2d1fdde7p1, 0x1.3p-5
    },
    {
        -0x1.54e9b4546767ep24, 0x1.0c6dc45281174p20, -0x1.b74a4ac802a13p15, 0x1.804530c100cebp11, -0x1.79886ca8dd796p7,
        0x1.f246a2b084da2p3, -0x1.0d8dbe2cd4c3p1, 0x1.5p-5
    },
    {
        -0x1.8ada07bcc83d2p23, 0x1.54837e6fae2f7p19, -0x1.3148f63acd229p15, 0x1.247725a2cf47fp11, -0x1.3a9c3403c716p7,
        0x1.c7321f5817a19p3, -0x1.061d6ab999c42p1, 0x1.7p-5
    },
    {
        -0x1.deadfc1c811ebp22, 0x1.c0b4b538221a1p18, -0x1.b5651a97acdp14, 0x1.c76fc1f0268fep10, -0x1.0a2e12968fbecp7,
        0x1.a305c76762707p3, -0x1.fe95fd960e185p0, 0x1.9p-5
    },
    {
        -0x1.2d919fd2e6ed3p22, 0x1.314d495f1742cp18, -0x1.417ce45c01382p14, 0x1.698102999b8a1p10, -0x1.c83920984d38dp6,
        0x1.84388d107cabfp3, -0x1.f1fc2f6e268b9p0, 0x1.bp-5
    },
    {
        -0x1.88c0359b45d75p21, 0x1.ab11087b614d2p17, -0x1.e31b1f169ae9ep13, 0x1.23b7d22ea6c86p10, -0x1.8b4b863c2441p6,
        0x1.69add28ef83b9p3, -0x1.e6471f2c2f676p0, 0x1.dp-5
    },
    {
        -0x1.072ec639692fdp21, 0x1.31ea09fe92a6ap17, -0x1.71f95a53f9846p13, 0x1.dd960c6426ffap9, -0x1.59c7b1b37cbf8p6,
        0x1.52926efeab0e9p3, -0x1.db582dd6898a6p0, 0x1.fp-5
    },
    {
        -0x1.2f38b4a730539p20, 0x1.8281e7b7697c7p16, -0x1.ff556d134769fp12, 0x1.69ec5dfcb1174p9, -0x1.1f408d1982d41p6,
        0x1.35067c11eae7cp3, -0x1.cc30129a1886ep0, 0x1.1p-4
    },
    {
        -0x1.36e4d2711aed9p19, 0x1.baeae178c2baep15, -0x1.47ad8412eae7fp12, 0x1.032af0a196fc8p9, -0x1.cb79b63ec4fa9p5,
        0x1.14e9d0412c61bp3, -0x1.b9ea201919c1cp0, 0x1.3p-4
    },
    {
        -0x1.54deb7fa8ee13p18, 0x1.0c5f620552769p15, -0x1.b71b942724168p11, 0x1.7fc6aeae6b397p8, -0x1.77be2b663f1a2p5,
        0x1.f5e330ae7d758p2, -0x1.a9723b8bd687p0, 0x1.5p-4
    },
    {
        -0x1.8acac4558577cp17, 0x1.546d9d627979ap14, -0x1.312216fa483dep11, 0x1.24034add7c925p8, -0x1.38e8a3a1746fbp5,
        0x1.cb06851ddce25p2, -0x1.9a73cef260413p0, 0x1.7p-4
    },
    {
        -0x1.de981fc307fd1p16, 0x1.c092a99d663d1p13, -0x1.b5236c4f4b257p10, 0x1.c699e9dd22cc2p7, -0x1.088f5ed1bca4bp5,
        0x1.a70f4cf90a566p2, -0x1.8caf7daae9abdp0, 0x1.9p-4
    },
    {
        -0x1.2d818fd63ab01p16, 0x1.313248b9cd736p13, -0x1.4144affaa9263p10, 0x1.68ba5b27e8b59p7, -0x1.c5225b8c29c9fp4,
        0x1.8874b03b40297p2, -0x1.7ff497440a0fdp0, 0x1.bp-4
    },
    {
        -0x1.88a8146fc0f6p15, 0x1.aae57d2e44a1dp12, -0x1.e2b9de35b2edap9, 0x1.22fe3ca54d8cap7, -0x1.8858bf55a5e36p4,
        0x1.6e1a3ed545df8p2, -0x1.741ce344728f6p0, 0x1.dp-4
    },
    {
        -0x1.071c4d1c541f1p15, 0x1.31c66cf1bf0cep12, -0x1.71a468201957bp9, 0x1.dc399a83f0e28p6, -0x1.56f6a0027e477p4,
        0x1.572cf732e29dcp2, -0x1.6909d4b562d4ap0, 0x1.fp-4
    },
    {
        -0x1.2f1f26a79c89bp14, 0x1.824bf1282024p11, -0x1.fec89961933ccp8, 0x1.68aced0475665p6, -0x1.1c9e6109d34f1p4,
        0x1.39e26304bbd77p2, -0x1.59a8ee78cec71p0, 0x1.1p-3
    },
    {
        -0x1.36c419b9a72cdp13, 0x1.ba9dc539f77e5p10, -0x1.473d348bcd971p8, 0x1.020af106f58c6p6, -0x1.c6a70a5816781p3,
        0x1.1a165fa0964a3p2, -0x1.4712aecd2bea7p0, 0x1.3p-3
    },
    {
        -0x1.54b2e8cbdbc83p12, 0x1.0c266dba5333ap10, -0x1.b66462fa162eep7, 0x1.7db966a84857cp5, -0x1.735294d559764p3,
        0x1.00680d1fef676p2, -0x1.3645a9883ba06p0, 0x1.5p-3
    },
    {
        -0x1.8a8def8dbf08ap11, 0x1.54172b9cd425cp9, -0x1.3089ea044ecf7p7, 0x1.221fc10703ddfp5, -0x1.34db81c6b9854p3,
        0x1.d67ae55b6d64fp1, -0x1.26edafe8fe69fp0, 0x1.7p-3
    },
    {
        -0x1.de410e389470fp10, 0x1.c00c78eae179dp8, -0x1.b422ae0fa6c85p6, 0x1.c318b8f0a218fp4, -0x1.04d9886938215p3,
        0x1.b2ffcb4554382p1, -0x1.18cbc3e17c425p0, 0x1.9p-3
    },
    {
        -0x1.2d41a1cd10684p10, 0x1.30c822a1a25c2p8, -0x1.40693f6562bd3p6, 0x1.6574817dc200ep4, -0x1.be59327771ae3p2,
        0x1.94d6c6633b345p1, -0x1.0baf8c639dd61p0, 0x1.bp-3
    },
    {
        -0x1.88481d5b0cc67p9, 0x1.aa3acfd550652p7, -0x1.e13e7bee6375fp5, 0x1.1feb649a54822p4, -0x1.8227c932a4bb9p2,
        0x1.7ae4193851426p1, -0x1.fee6449549b9fp-1, 0x1.dp-3
    },
    {
        -0x1.06d2e44696099p9, 0x1.313b46fc1e873p7, -0x1.7059308ab4e53p5, 0x1.d66c893bc5622p3, -0x1.5154f2e056f76p2,
        0x1.64555b9d8ccb6p1, -0x1.e7f089906325p-1, 0x1.fp-3
    },
    {
        -0x1.2eb9bbbf37fa4p8, 0x1.817a3502e07c8p6, -0x1.fca3725baa97fp4, 0x1.6350f154561bp3, -0x1.17c557366609dp2,
        0x1.4788683c12bafp1, -0x1.c7ecea8766678p-1, 0x1.1p-2
    },
    {
        -0x1.36427ebf7644ap7, 0x1.b9747d63b5728p5, -0x1.45867821952c4p4, 0x1.fa534ed0b7379p2, -0x1.bedf97700f7d1p1,
        0x1.2847f3c78b266p1, -0x1.a1029fdc1c569p-1, 0x1.3p-2
    },
    {
        -0x1.5405c59bc7ee1p6, 0x1.0b4ce7151cd69p5, -0x1.b395f012208eap3, 0x1.74bd48665f07ap2, -0x1.6d4c63e339654p1,
        0x1.0f07dcd5a94f5p1, -0x1.7d9b3439661cfp-1, 0x1.5p-2
    },
    {
        -0x1.899e20b0c78e2p5, 0x1.52d088bc97ec7p4, -0x1.2e3154e94737ep3, 0x1.19c7cfd88e8fp2, -0x1.3074bc9fc87e2p1,
        0x1.f4610223df05dp0, -0x1.5d11cde095ecep-1, 0x1.7p-2
    },
    {
        -0x1.dceac80b3522fp4, 0x1.be178f1de9526p3, -0x1.b024602d9a241p2, 0x1.b37dc890a1d8fp1, -0x1.01f5ebd820fc2p1,
        0x1.d15a48f969534p0, -0x1.3eebb079e346p-1, 0x1.9p-2
    },
    {
        -0x1.2c471db350ae1p4, 0x1.2f414b0bbfac3p3, -0x1.3cf54a597a236p2, 0x1.56c722974c6d8p1, -0x1.bb68369a0dd9p0,
        0x1.b376ca6410b79p0, -0x1.22cb30edb138bp-1, 0x1.bp-2
    },
    {
        -0x1.86d169b7d4599p3, 0x1.a7cff330145b8p2, -0x1.db300ab9a204dp1, 0x1.120ce415013ecp1, -0x1.81e37dab4e7d5p0,
        0x1.999d93c376b46p0, -0x1.086757ba7cc91p-1, 0x1.dp-2
    },
    {
        -0x1.05b56c42ef89ep3, 0x1.2f4b49e09bcf4p2, -0x1.6af7facf53ca4p1, 0x1.bc1cb0be57292p0, -0x1.5398eb0489889p0,
        0x1.82feab23d4258p0, -0x1.df0ca0c1b06a6p-2, 0x1.fp-2
    },
    {
        -0x1.2d3224f5d06dp2, 0x1.7ea3f7ef1bd38p1, -0x1.f36f62f26bd88p0, 0x1.4ade425ed3ebfp0, -0x1.1d9a1d42ce3dcp0,
        0x1.65d008c070bp0, -0x1.994d75f242705p-2, 0x1.1p-1
    },
    {
        -0x1.345405b2d1809p1, 0x1.b59d54b83aafcp0, -0x1.3dc8c3c929448p0, 0x1.cda44fa279814p-1, -0x1.d34c21d99a54dp-1,
        0x1.458dd64daa509p0, -0x1.440444c1f7473p-2, 0x1.3p-1
    },
    {
        -0x1.517b6e145c986p0, 0x1.08a3ef10a68ddp0, -0x1.a61b469d8e7eep-1, 0x1.4ba921928512ap-1, -0x1.89c13a7787536p-1,
        0x1.2ac5cdcfc0e72p0, -0x1.ec248b7fb3d6ap-3, 0x1.5p-1
    },
    {
        -0x1.862b821a08312p-1, 0x1.4f12278489514p-1, -0x1.221cb6ce66461p-1, 0x1.e7c5e8c7ef3d1p-2, -0x1.544f86355313fp-1,
        0x1.13eb29594c0c8p0, -0x1.5c9bdd59aade3p-3, 0x1.7p-1
    },
    {
        -0x1.d8201e77250b5p-2, 0x1.b8c4eb920e9bfp-2, -0x1.99f5bd4fbe55cp-2, 0x1.6d7b759307138p-2, -0x1.2ca54921afd3p-1,
        0x1.ffe5856f23bbdp-1, -0x1.af7d911061c7ep-4, 0x1.9p-1
    },
    {
        -0x1.28e4026d659ecp-2, 0x1.2b7302ee28dddp-2, -0x1.282feb717a9d7p-2, 0x1.1620cac234a6ep-2, -0x1.0eb2ac529b393p-1,
        0x1.dc45d11644b13p-1, -0x1.713534f51d94ep-5, 0x1.bp-1
    },
    {
        -0x1.86ae495a9ff3fp-3, 0x1.c0106ab53643ap-3, -0x1.cf1c2c84a7ff5p-3, 0x1.c3b13f7a222p-3, -0x1.f7e38a3b51acfp-2,
        0x1.c24371844216bp-1, -0x1.af74bfa0f1304p-56, 0x1.c982eb8d417eap-1
    },
    {
        -0x1.023c14ded5b78p-3, 0x1.2b62667852ffp-3, -0x1.44e55c3aa9642p-3, 0x1.4e9ee113fddf6p-3, -0x1.cbf225c9c9252p-2,
        0x1.9e1e67093514p-1, 0x1.03bf67d087059p-4, 0x1.fp-1
    },
    {
        -0x1.28ffde3489d05p-4, 0x1.79e12404a0a0cp-4, -0x1.aa2be6acf940bp-4, 0x1.d6b9122877752p-4, -0x1.a45bb27be5649p-2,
        0x1.74f69452436dfp-1, 0x1.155604f3706c8p-3, 0x1.1p0
    },
    {
        -0x1.306108ea80458p-5, 0x1.b0922613de29ep-5, -0x1.ed66dc4c86d41p-5, 0x1.32a84bd699eacp-4, -0x1.809d76136074p-2,
        0x1.42cfd11a1ffap-1, 0x1.c318256dabd86p-3, 0x1.3p0
    },
    {
        -0x1.4ecf05e50c578p-6, 0x1.057fc246449adp-5, -0x1.1a6298348ea53p-5, 0x1.a7c68dc8d6af8p-5, -0x1.68b7e27cc3aaep-2,
        0x1.145210bb273aap-1, 0x1.2c606e86c3694p-2, 0x1.5p0
    },
    {
        -0x1.873e804404456p-7, 0x1.497f7b509dde1p-6, -0x1.30591408f47f2p-6, 0x1.3da224fe76ca8p-5, -0x1.57984296215acp-2,
        0x1.d0b4861207d8p-2, 0x1.6bea9735dc296p-2, 0x1.7p0
    },
    {
        -0x1.e25d47e08cedp-8, 0x1.ab30561039296p-7, -0x1.13b837a601116p-7, 0x1.07db0ecf63b39p-5, -0x1.4a20cc66b6d13p-2,
        0x1.7c8ac2d82e8d4p-2, 0x1.a0b596fb54de3p-2, 0x1.9p0
    },
    {
        -0x1.383b2b2e9f548p-8, 0x1.18fff8ebf45fp-7, -0x1.d0964ea99cc36p-10, 0x1.e7e12040580e9p-6, -0x1.3e5525a81751bp-2,
        0x1.2b80f321268f6p-2, 0x1.cb2e78ddb0b81p-2, 0x1.bp0
    },
    {
        -0x1.a6ddb042d0a97p-9, 0x1.70b05f491360dp-8, 0x1.54b38b1b7fd84p-9, 0x1.ec84fab3f62f7p-6, -0x1.32e9ce6d6c882p-2,
        0x1.bab0f046a6bcep-3, 0x1.ebb4750df5f29p-2, 0x1.dp0
    },
    {
        -0x1.2a81854050c7ap-9, 0x1.d659c220f03adp-9, 0x1.6460c061cd6edp-8, 0x1.07272053bfd8ep-5, -0x1.2704ed37eeb51p-2,
        0x1.242cc3fba624cp-3, 0x1.0151bb27f901ep-1, 0x1.fp0
    },
    {
        -0x1.7c10161d51524p-10, 0x1.9628222af0013p-10, 0x1.fcfce8de6f383p-8, 0x1.30b17b0250a4p-5, -0x1.1323a25162392p-2,
        0x1.38ba68e54b3d9p-5, 0x1.09f0f995cb215p-1, 0x1.1p1
    },
    {
        -0x1.c9915349acae3p-11, -0x1.2f62559cfcd4dp-13, 0x1.1804af7a3ccap-7, 0x1.74f0adfa6a692p-5,
        -0x1.e6d8fe0354fe4p-3, -0x1.6b450e1c80097p-4, 0x1.068b13f5a6b1p-1, 0x1.3p1
    },
    {
        -0x1.23f3951904d54p-11, -0x1.39edc979c9092p-10, 0x1.f57fba24cfab5p-8, 0x1.b82df00efb4ffp-5,
        -0x1.9a80862140b15p-3, -0x1.967fbde14e8a8p-3, 0x1.e7ee30648a72bp-2, 0x1.5p1
    },
    {
        -0x1.6e1f45eefdd2bp-12, -0x1.e9dfb87c8bb6ap-10, 0x1.758ee741d0959p-8, 0x1.ef70e7c6541c9p-5,
        -0x1.428971d11b64cp-3, -0x1.27187e1159d2fp-2, 0x1.a92dca3034579p-2, 0x1.7p1
    },
    {
        -0x1.8e2b95d75df6bp-13, -0x1.2967ac5a33632p-9, 0x1.948c0fd7b2a76p-9, 0x1.09e2b1ee0515cp-4,
        -0x1.c3cd16dfe957ap-4, -0x1.6bcae39fa3743p-2, 0x1.56506de081a74p-2, 0x1.9p1
    },
    {
        -0x1.d1511ab024996p-15, -0x1.4137ebe105eeep-9, 0x1.db98f80068f23p-14, 0x1.10841949f8a59p-4,
        -0x1.f246d51d051afp-5, -0x1.97a7366a1f1bep-2, 0x1.eab5e99e09dc8p-3, 0x1.bp1
    },
    {
        0x1.05021f49647c7p-14, -0x1.404ff0e0416fep-9, -0x1.84c33eea106e9p-9, 0x1.0aabae021a81bp-4, -0x1.713b820e60bbp-7,
        -0x1.aa1032ea50067p-2, 0x1.193934128ebedp-3, 0x1.dp1
    },
    {
        0x1.62d8eff5cf805p-13, -0x1.1ebfa40871737p-9, -0x1.c11a2d83c1cefp-8, 0x1.df6d5d400a939p-5, 0x1.a09c92c43a0cbp-5,
        -0x1.9c34256a1ce44p-2, -0x1.8fa8956b4b481p-55, 0x1.fa9534d98569cp1
    },
    {
        0x1.b341c11f751ap-13, -0x1.1dc0ec5097804p-9, -0x1.c122d80b3afe2p-8, 0x1.df6d38555547ap-5, 0x1.a09c96c600f03p-5,
        -0x1.9c342566abc3bp-2, -0x1.8fa8956b4b481p-55, 0x1.fa9534d98569cp1
    },
    {
        0x1.6868caf3d9232p-12, -0x1.4f0b5255b9a9fp-10, -0x1.7e0b3ea5eb9aep-7, 0x1.374c25b520231p-5,
        0x1.0bdf1d5d37925p-3, -0x1.3438a467964aap-2, -0x1.8ec17fe372eefp-3, 0x1.2p2
    },
    {
        0x1.9aac1aeeee506p-12, -0x1.4092be64ff6e9p-13, -0x1.b9be78c4d5061p-7, 0x1.95f1a754feb81p-7,
        0x1.5a3454dd23241p-3, -0x1.2ed2df2909379p-3, -0x1.3bec0b5abc9abp-2, 0x1.4p2
    },
    {
        0x1.6e5790e110b05p-12, 0x1.00d83ea22fc33p-10, -0x1.96e91e40c266bp-7, -0x1.ca43e7140b0c2p-7,
        0x1.57346c20b22adp-3, 0x1.854146a26c648p-6, -0x1.5ba0ccf037ce6p-2, 0x1.6p2
    },
    {
        0x1.e2e32886db08bp-13, 0x1.e8e4378120e2ap-10, -0x1.1fadffde2c11ep-7, -0x1.23408bd36775ep-5,
        0x1.093e3048992bfp-3, 0x1.666bd2beb3a1ep-3, -0x1.271c81da53e77p-2, 0x1.8p2
    },
    {
        0x1.0a5084e998162p-14, 0x1.2f225043d9833p-9, -0x1.c31265deb542p-9, -0x1.88e66604cb499p-5, 0x1.0c70cfd8258d7p-4,
        0x1.18ab62006cffcp-2, -0x1.62ccee020d2f2p-3, 0x1.ap2
    },
    {
        -0x1.e7a478a0cfec2p-14, 0x1.1d52ef4e70beap-9, 0x1.b2d274e1bc6fap-9, -0x1.8969e38b00148p-5,
        -0x1.5aef58a4ef799p-6, 0x1.334cca09c2969p-2, 0x1.e91b198d39ce2p-56, 0x1.c581dc4e72103p2
    },
    {
        -0x1.0da5fab3f1988p-12, 0x1.b60b573c92ee6p-10, 0x1.e1e2caf14f4b4p-8, -0x1.3fdc4a8926a01p-5,
        -0x1.3704580bf506dp-4, 0x1.0958fbf39351ep-2, 0x1.e083e5764918cp-4, 0x1.ep2
    },
    {
        -0x1.64478ee5b2385p-12, 0x1.8d36138ee9ba8p-11, 0x1.564c424b55904p-7, -0x1.55d3aa3e94a34p-6,
        -0x1.f23c48f5e2c1fp-4, 0x1.43b5340c1619ep-3, 0x1.c9c5a276fb82cp-3, 0x1p3
    },
    {
        -0x1.67f8327210332p-12, -0x1.2ccf7c9d8fe5p-12, 0x1.69a8ad6a79a09p-7, 0x1.15310485bf5cp-10,
        -0x1.17d7b395e168ap-3, 0x1.acbf65a2c5fadp-6, 0x1.14b0a5ab087d8p-2, 0x1.1p3
    },
    {
        -0x1.1a645de701b11p-12, -0x1.409b7bbc9fdcp-10, 0x1.2a2156785d72ap-7, 0x1.61a5863705d4bp-6,
        -0x1.e8220c14c54bcp-4, -0x1.ab45c27f53a67p-4, 0x1.ffdecfc9a29cap-3, 0x1.2p3
    },
    {
        -0x1.1f3a0ee7c850ap-13, -0x1.e32cbda071aa6p-10, 0x1.530ea79331c0ap-8, 0x1.27ddc1213778bp-5,
        -0x1.32d68aadb588ep-4, -0x1.a01cc86d38a0ap-3, 0x1.5ea3ad4225a43p-3, 0x1.3p3
    },
    {
        0x1.0c1fbf7afcb28p-15, -0x1.02e2ee4106151p-9, -0x1.03f48259e2143p-9, 0x1.4e656e51ccd7p-5, 0x1.903639e28a12fp-7,
        -0x1.ff635cbbd2b24p-3, -0x1.cabd7c823bf21p-53, 0x1.471d735a47d58p3
    },
    {
        0x1.64b34c95cb867p-13, -0x1.c3a30e970563ap-10, -0x1.29a2083916dbcp-8, 0x1.308397959cc41p-5,
        0x1.6fc574b69e709p-5, -0x1.dea0528408be8p-3, -0x1.149aba55d75afp-4, 0x1.5p3
    },
    {
        0x1.1f6dd1827fb48p-12, -0x1.1143cd315f6f7p-10, -0x1.0872ab5b50f75p-7, 0x1.8db8784168d87p-6,
        0x1.78473f926c3d7p-4, -0x1.4f44d9457cb33p-3, -0x1.59cca031119d7p-3, 0x1.6p3
    },
    {
        0x1.4687370ca608dp-12, -0x1.32e4c70357a6p-13, -0x1.39fcae1eda466p-7, 0x1.9964282f1e588p-8, 0x1.d7981bf2a686cp-4,
        -0x1.daaa5420c0c89p-5, -0x1.cd467e4dc807dp-3, 0x1.7p3
    },
    {
        0x1.20c84f8697137p-12, 0x1.89d2136e4a82ap-11, -0x1.2064f6124306ep-7, -0x1.9a0369fb8fc05p-7,
        0x1.c38a8468649dcp-4, 0x1.d3c1bd4cba2aap-5, -0x1.cd49385cd3fd1p-3, 0x1.8p3
    },
    {
        0x1.7282560d9696fp-13, 0x1.7a05c915762c9p-10, -0x1.88a138ad41063p-8, -0x1.c41ae39682886p-6,
        0x1.4571298ef18f9p-4, 0x1.3b0f8d3c6b73bp-3, -0x1.5ea59b440a933p-3, 0x1.9p3
    },
    {
        0x1.4f6de38f5b89cp-15, 0x1.d0a38d784231dp-10, -0x1.ec51659fdb283p-10, -0x1.23a65832aff2dp-5,
        0x1.fc4b9372fb3bfp-6, 0x1.ae3f294a73dbap-3, -0x1.4056e3c6fee03p-4, 0x1.ap3
    },
    {
        -0x1.9476a6c185e1ep-14, 0x1.cca444d03a239p-10, 0x1.5f005ddcb10bep-10, -0x1.26caf31dec3fp-5,
        -0x1.0bc2d15c952e4p-7, 0x1.bf32a27ee6b0bp-3, 0x1.4d9fe48a91cefp-53, 0x1.ab8e1c4a1e74ap3
    },
    {
        -0x1.c38d1acf87d9dp-13, 0x1.38280e9e0ce2p-10, 0x1.96042301dc451p-8, -0x1.a9993dc48af06p-6,
        -0x1.1cde3e6d3e45bp-4, 0x1.5549e407d0a4ep-3, 0x1.047d8992d6756p-3, 0x1.cp3
    },
    {
        -0x1.2058f05508043p-12, 0x1.cd6143a6acf9ep-12, 0x1.0f2979b9e4a0ap-7, -0x1.6eb60ac09ca18p-7,
        -0x1.912f4d11462c3p-4, 0x1.4bf2ca9e20f45p-4, 0x1.85bcff782662ap-3, 0x1.dp3
    },
    {
        -0x1.1951f4b2766cep-12, -0x1.9a602025e8608p-12, 0x1.110059f20044bp-7, 0x1.79bf3ed7f349ep-8,
        -0x1.a1e9e35bbbfcep-4, -0x1.594533b676bcap-6, 0x1.a4ca76ffdccedp-3, 0x1.ep3
    },
    {
        -0x1.a08017b5320b3p-13, -0x1.21c698747d974p-10, 0x1.a43751a3e78dap-8, 0x1.54e52fdc52944p-6,
        -0x1.4e506f28fd3ep-4, -0x1.d629fe73a5614p-4, 0x1.5d7b1447ac889p-3, 0x1.fp3
    },
    {
        -0x1.60637bb478a13p-14, -0x1.92f3fb21612fcp-10, 0x1.8d0cb42f236eap-9, 0x1.f28b6332994b3p-6,
        -0x1.5ae154d59281fp-5, -0x1.6c7e3ec727efcp-3, 0x1.88711cb0f0e41p-4, 0x1p4
    },
    {
        0x1.8d014b0ff6918p-15, -0x1.a161f1d967106p-10, -0x1.013a34d8f4b21p-10, 0x1.0a44e680dc387p-5,
        0x1.86254888fe817p-8, -0x1.925c358ee3a7dp-3, 0x1.cd827f6c074a2p-53, 0x1.0803c74003214p4
    },
    {
        0x1.57baba1a1ab94p-13, -0x1.4c82806661587p-10, -0x1.2f7e28dfedeep-8, 0x1.b68a56bddf5dcp-6, 0x1.a3ba81c6cb3d9p-5,
        -0x1.566f9805f8a01p-3, -0x1.7b71249b3ed7bp-4, 0x1.1p4
    },
    {
        0x1.f46ea013d638bp-13, -0x1.55bf7383344d2p-11, -0x1.d032e871bbb0cp-8, 0x1.e4c301bffd902p-7,
        0x1.540ed6333ab19p-4, -0x1.93c112265bef1p-4, -0x1.4885a9cdc564ap-3, 0x1.18p4
    },
    {
        0x1.0b2ff684a115fp-12, 0x1.b23d35038f2ddp-14, -0x1.fdd9e4d4667c3p-8, -0x1.94869cf297d1dp-12,
        0x1.8108e1cf20dbap-4, -0x1.0b3a3549238f8p-7, -0x1.801b58be99f85p-3, 0x1.2p4
    },
    {
        0x1.b87eeefffef6dp-13, 0x1.ab2dcbdca45aap-11, -0x1.b095f7d6e756bp-8, -0x1.eda165cfb44dep-7,
        0x1.505bc5b7466ebp-4, 0x1.4ed6d7a15a3dap-4, -0x1.59687f71b04a8p-3, 0x1.28p4
    },
    {
        0x1.e83d87bfac961p-14, 0x1.586e088cbefaap-10, -0x1.fbe364d1d40f1p-9, -0x1.a5e00b3f427ebp-6,
        0x1.a059c3cc2c966p-5, 0x1.324c92a64b7dap-3, -0x1.c097b84c49f3ap-4, 0x1.3p4
    },
    {
        -0x1.00c63e591159ep-17, 0x1.84292c6340623p-10, 0x1.8d7c85296de33p-11, -0x1.e9252aa3b6c6cp-6,
        -0x1.2c673fe13122cp-8, 0x1.70c4f674d915bp-3, 0x1.1d336c8b0a153p-52, 0x1.3a42cdf5febd7p4
    },
    {
        -0x1.f0a1a6258dcfp-14, 0x1.55149cc3b3655p-10, 0x1.ad3f8cf074f8bp-9, -0x1.b924c6e48fe68p-6,
        -0x1.2279007170afdp-5, 0x1.52f7c0ce8b21cp-3, 0x1.00936d2b2bee8p-4, 0x1.4p4
    },
    {
        -0x1.aa1ef0d9fd7b4p-13, 0x1.a7ced9b91ffcbp-11, 0x1.8749db60e14a8p-8, -0x1.1e47858ca6919p-6,
        -0x1.1c6658743620ap-4, 0x1.ca41bcbea7ec3p-4, 0x1.113908ee249ffp-3, 0x1.48p4
    },
    {
        -0x1.f229d3102aa6dp-13, 0x1.17f68811fac97p-13, 0x1.d601b7b5e6561p-8, -0x1.0946e18eb6c57p-8,
        -0x1.5fbf1e261cfe6p-4, 0x1.0a8fc6975c03p-5, 0x1.5c92bd5128a7fp-3, 0x1.5p4
    },
    {
        -0x1.c18ac16a92338p-13, -0x1.24a03c3366bbep-11, 0x1.b22a194ec8536p-8, 0x1.48f2fae9b98b7p-7,
        -0x1.4cc780aa708bcp-4, -0x1.b072c8ff66ecdp-5, 0x1.51ceca73fe3cbp-3, 0x1.58p4
    },
    {
        -0x1.266cd35d85603p-13, -0x1.209118c918a25p-10, 0x1.26e61c9566d3p-8, 0x1.5e77a7dedc332p-6,
        -0x1.d4156ba4bab74p-5, -0x1.f9786b3bf8767p-4, 0x1.eb0f41fbff885p-4, 0x1.6p4
    },
    {
        -0x1.2063e312c9d01p-15, -0x1.668e0409f76fcp-10, 0x1.5f665b992ab0ap-10, 0x1.bffccdfa30ba4p-6,
        -0x1.44544bda8e632p-6, -0x1.4d0bb49bf307dp-3, 0x1.7f8993cb334e5p-5, 0x1.68p4
    },
    {
        0x1.29d9bce16acfep-14, -0x1.6d5fa7073293ep-10, -0x1.3cbbc13ba0fe3p-11, 0x1.c6c2e08b533a7p-6,
        0x1.e0ee95bd22a41p-9, -0x1.5664d374264f9p-3, 0x1.3296749aaf8p-52, 0x1.6c832fd77ac07p4
    },
    {
        0x1.620f74d389c17p-13, -0x1.e3f72f5c5d011p-11, -0x1.423470796aea3p-8, 0x1.3e687671b8bfdp-6,
        0x1.d0be6caeded2ap-5, -0x1.f24ab5d5576eep-4, -0x1.bb8a3961c24a2p-4, 0x1.78p4
    },
    {
        0x1.c8797ff3afa27p-13, -0x1.5b43d86382558p-12, -0x1.ab2cfdfcccc23p-8, 0x1.fbfc07e88f989p-8,
        0x1.3d8827df91782p-4, -0x1.b2aa6a5eaa275p-5, -0x1.39010c1b3666p-3, 0x1.8p4
    },
    {
        0x1.bf4ff53cd1d1cp-13, 0x1.5881b99274f16p-12, -0x1.ab311cdfae618p-8, -0x1.6c82ee98a690cp-8,
        0x1.4441bf43402e3p-4, 0x1.b9a004b537356p-6, -0x1.468290463a26p-3, 0x1.88p4
    },
    {
        0x1.4ae49075f1a52p-13, 0x1.d5f33751990eap-11, -0x1.445247c6e1ecfp-8, -0x1.1ae805c3d8c9cp-6,
        0x1.f90578b2f6668p-5, 0x1.94ceba9e2c07ap-4, -0x1.049b59b03489dp-3, 0x1.9p4
    },
    {
        0x1.124feba192d16p-14, 0x1.446d7a4b56f6dp-10, -0x1.229c0e54d29c5p-9, -0x1.92a7fb1dc3ebbp-6,
        0x1.e4a21c6bc4d69p-6, 0x1.29b30f02da73dp-3, -0x1.09aa64ba4bcb1p-4, 0x1.98p4
    },
    {
        -0x1.447788ceb21f4p-15, 0x1.52c815975e4b5p-10, 0x1.0746f0d6c5e3ep-11, -0x1.aab0acd3978dp-6,
        -0x1.8c37d1f858cb1p-9, 0x1.40f8ffe16eb61p-3, 0x1.45d52c7c075b2p-55, 0x1.9ec46f3e80146p4
    },
    {
        -0x1.1c5632e761415p-13, 0x1.071e5d18f2262p-10, 0x1.0041986895894p-8, -0x1.54a5d600d3be7p-6,
        -0x1.6e33cab49931ap-5, 0x1.06c5273df0866p-3, 0x1.5a5edfe73a6f1p-4, 0x1.a8p4
    },
    {
        -0x1.9aba09b4b9bf8p-13, 0x1.04123cb60d264p-11, 0x1.7ddbc199a1492p-8, -0x1.63430d9581f47p-7,
        -0x1.1a3fbbb0c0a25p-4, 0x1.1fbfc325fe06fp-4, 0x1.14eb96e5f0163p-3, 0x1.bp4
    },
    {
        -0x1.b3ffe4a555c2ep-13, -0x1.001deaa7ed946p-13, 0x1.9d09a8f18fb9cp-8, 0x1.9570513837cc3p-10,
        -0x1.374ad448019d2p-4, -0x1.ec831fa703b0dp-9, 0x1.379277a701fa5p-3, 0x1.b8p4
    },
    {
        -0x1.63d0794822fe8p-13, -0x1.6effe42715adap-11, 0x1.57f30df1cc0a4p-8, 0x1.b51ccadb62dbbp-7,
        -0x1.087a28f10fdc6p-4, -0x1.3556b07396dfap-4, 0x1.0e0047871cf6dp-3, 0x1.cp4
    },
    {
        -0x1.7e828337937dbp-14, -0x1.201aca98ac08ep-10, 0x1.820161ff6b853p-9, 0x1.6388edefdbed2p-6,
        -0x1.34eea9b0b507p-5, -0x1.058dd466a434bp-3, 0x1.4749753c38cp-4, 0x1.c8p4
    },
    {
        0x1.48af3e6c47f1bp-17, -0x1.406c5d9b394b7p-10, -0x1.bad8b4c390081p-12, 0x1.93363fd0267c7p-6,
        0x1.4dbf3b7d9a97ep-9, -0x1.2f206e49700aap-3, 0x1.3bc249963d4c1p-53, 0x1.d106449616c4fp4
    },
    {
        0x1.b2377f8b4771p-14, -0x1.14924810c2a8ap-10, -0x1.8265d19c36ed9p-9, 0x1.6230fdd4ff818p-6, 0x1.10750ec1711ecp-5,
        -0x1.0e92b1c4915aap-3, -0x1.fc3a056b6c439p-5, 0x1.d8p4
    },
    {
        0x1.69ef60b4430b4p-13, -0x1.4b5e720e54894p-11, -0x1.4e8ba09207647p-8, 0x1.b6b2902eb9f63p-7,
        0x1.ebf8606d918efp-5, -0x1.59cea08794ec8p-4, -0x1.e0717d38dfb1dp-4, 0x1.ep4
    },
    {
        0x1.a11a13e097401p-13, -0x1.091ce8328a552p-14, -0x1.88b237f4e46d7p-8, 0x1.0d0af802c5921p-9,
        0x1.2654aea725b7dp-4, -0x1.1748b48c29062p-6, -0x1.252fa9b93517cp-3, 0x1.e8p4
    },
    {
        0x1.72b5cd22d54c3p-13, 0x1.0c597e4a14143p-11, -0x1.62f009603fd21p-8, -0x1.3a74f16971752p-7,
        0x1.0e9030681d434p-4, 0x1.b53aee3b4b659p-5, -0x1.1216db9fffa35p-3, 0x1.fp4
    },
    {
        0x1.d70a0606a4137p-14, 0x1.f440cc6aced84p-11, -0x1.cfd20baca824p-9, -0x1.32fa826868881p-6, 0x1.6b2fe83c7f506p-5,
        0x1.c1646915c4263p-4, -0x1.79741c57f3d08p-4, 0x1.f8p4
    },
    {
        0x1.0cf17b8ec4c88p-16, 0x1.34fdaea33d081p-10, 0x1.7f2d5da16e0b8p-12, -0x1.7f346f2f39b07p-6,
        -0x1.1e205a1c278e2p-9, 0x1.1ff5ebd77cf3cp-3, -0x1.069eacea8ff0bp-51, 0x1.01a4420e4abeep5
    },
    {
        -0x1.3148a3865f4fap-14, 0x1.1b385878de702p-10, 0x1.0a2275712b849p-9, -0x1.67e5331361e7p-6,
        -0x1.6ebd466e3f07ap-6, 0x1.11006f7c77d32p-3, 0x1.4d239f1e113afp-5, 0x1.04p5
    },
    {
        -0x1.36f48f6caf0fcp-13, 0x1.84d94a1fdebbcp-11, 0x1.1dc3f75b08bc2p-8, -0x1.f9b80e3093a28p-7,
        -0x1.a1f1d0a769f8dp-5, 0x1.8850bccd7f7fep-4, 0x1.960e66181c07ep-4, 0x1.08p5
    },
    {
        -0x1.87c6dc97c79c5p-13, 0x1.df32ad5b85a18p-13, 0x1.6efeab4866ee3p-8, -0x1.58931d21d0de6p-8,
        -0x1.11cf4912db02bp-4, 0x1.236284bfcd867p-5, 0x1.0fa29c263df6cp-3, 0x1.0cp5
    },
    {
        -0x1.78b189fef4e89p-13, -0x1.5ca644c608a58p-12, 0x1.6625c9812fc73p-8, 0x1.8bfbccf94e13ap-8,
        -0x1.0f42be8b9e3ebp-4, -0x1.094e1b6bf4e8cp-5, 0x1.113624669b62bp-3, 0x1.1p5
    },
    {
        -0x1.0eb6057c02e2cp-13, -0x1.a607b159e759p-11, 0x1.06aae7730098ep-8, 0x1.0171f1f7869p-6, -0x1.95dbe02f277f2p-5,
        -0x1.76b83181b6268p-4, 0x1.a0b86731d602fp-4, 0x1.14p5
    },
    {
        -0x1.92e2a92fe7299p-15, -0x1.1a0666ce519b5p-10, 0x1.a39e407aca14dp-10, 0x1.5f32cf834c1cdp-6,
        -0x1.5954f3c9d3cfep-6, -0x1.0525655c78724p-3, 0x1.772d572739eb6p-5, 0x1.18p5
    },
    {
        0x1.4c1edf89cf463p-15, -0x1.254f10ce7d1aep-10, -0x1.4a97f6378c45cp-12, 0x1.6de68dd00fca8p-6,
        0x1.f1ae979e14c26p-10, -0x1.12dd55d951434p-3, -0x1.bc4fd81e2b2c5p-56, 0x1.1ac588c944279p5
    },
    {
        0x1.02941cca85223p-13, -0x1.b16f647c4fff3p-11, -0x1.d82d9f227c637p-9, 0x1.16a83e824622ap-6,
        0x1.5712383a5e6bdp-5, -0x1.abd8c2cb53049p-4, -0x1.4b2fc10c24ab7p-4, 0x1.2p5
    },
    {
        0x1.690301c71191p-13, -0x1.886276c22ddb2p-12, -0x1.50b0ba1020fffp-8, 0x1.08b4e44f4ec73p-7, 0x1.f45b5bb72bdf2p-5,
        -0x1.a8cbe58efc9dfp-5, -0x1.ee89a93d983fdp-4, 0x1.24p5
    },
    {
        0x1.76a9bb9e44f6ep-13, 0x1.55a2bafe4ce02p-13, -0x1.624bc9fc91489p-8, -0x1.60aa8f804ec2p-9, 0x1.0b0148a6cb379p-4,
        0x1.9dd78dec27af8p-7, -0x1.0bb43e1649f3ep-3, 0x1.28p5
    },
    {
        0x1.296469bba3739p-13, 0x1.5695a410a757fp-11, -0x1.1dbed22748187p-8, -0x1.9eed3260536fbp-7,
        0x1.b5872fcccb79dp-5, 0x1.2bbdd3cae1c83p-4, -0x1.bd856c1275d03p-4, 0x1.2cp5
    },
    {
        0x1.2a29dc0df5d41p-14, 0x1.00adf4a47e731p-10, -0x1.2992aae9bc1dap-9, -0x1.3e555fca155acp-6,
        0x1.d81c6ede023dep-6, 0x1.d79dba5c43c67p-4, -0x1.f0eed700f47bbp-5, 0x1.3p5
    },
    {
        -0x1.066d34e63b2b5p-16, 0x1.1709947b849f3p-10, 0x1.2388ff6c80355p-12, -0x1.5ebbe9b854f55p-6,
        -0x1.b602beb3a666ep-10, 0x1.076825775a65p-3, 0x1.a82b3a8997d82p-52, 0x1.33e6ecf5cb221p5
    },
    {
        -0x1.9b228491e39b1p-14, 0x1.d1d906f153bbfp-11, 0x1.743cc1d6ccce1p-9, -0x1.29219a4a05769p-6,
        -0x1.0c1e393212ac6p-5, 0x1.c4dede349ddf5p-4, 0x1.008188d671fbp-4, 0x1.38p5
    },
    {
        -0x1.45b576874a47fp-13, 0x1.0665e3323fbep-11, 0x1.2e8364b737a16p-8, -0x1.589d2fc38631fp-7,
        -0x1.bfcf591176c3dp-5, 0x1.0df89ab744f12p-4, 0x1.b8f9a96a57fe5p-4, 0x1.3cp5
    },
    {
        -0x1.6d68b5064a1dap-13, -0x1.15eb9a15d63edp-18, 0x1.5808df678f76ep-8, -0x1.ccfffd4af8f0cp-12,
        -0x1.0236e38b1b4b5p-4, 0x1.7baee60e5e65bp-8, 0x1.01eaf3c5200bap-3, 0x1.4p5
    },
    {
        -0x1.3c0723d242369p-13, -0x1.06f78dc7f7a49p-11, 0x1.2d8902aea9acep-8, 0x1.3b368a63bf265p-7,
        -0x1.cab174207baacp-5, -0x1.c271ab5c00f3p-5, 0x1.d041144751afbp-4, 0x1.44p5
    },
    {
        -0x1.7d35f5ab93722p-14, -0x1.c8cbee2af7f39p-11, 0x1.74b3aa52822cap-9, 0x1.1a1e15bf7a0eap-6,
        -0x1.222e6772000a3p-5, -0x1.a058f5c07da8dp-4, 0x1.2c56098b538adp-4, 0x1.48p5
    },
    {
        -0x1.baed892598c5bp-18, -0x1.0e1150168e15ap-10, -0x1.02ff681a6e95fp-12, 0x1.514eb414bdcb8p-6,
        0x1.85607df4151e6p-10, -0x1.fa8b3fa79a009p-4, -0x1.71414f52d813bp-52, 0x1.4d0867ec213f3p5
    },
    {
        0x1.315537e61fc3fp-14, -0x1.e6b7b0773731bp-11, -0x1.10f333e8741acp-9, 0x1.34a19d8bbc5bp-6, 0x1.83d86f2913324p-6,
        -0x1.d3d49f9d74711p-4, -0x1.6d915b60d668ap-5, 0x1.5p5
    },
    {
        0x1.1eba49392896bp-13, -0x1.3e6e8a4832f2dp-11, -0x1.0930154fc3574p-8, 0x1.9c0528bd9cee7p-7,
        0x1.86f3d6acbe419p-5, -0x1.3e641a1952542p-4, -0x1.7f76003c1fa17p-4, 0x1.54p5
    },
    {
        0x1.5dac6c040539p-13, -0x1.2b28157eb5234p-13, -0x1.47fe71e537b05p-8, 0x1.b42ccf0856c77p-9, 0x1.ea9f65207e99cp-5,
        -0x1.74f9114b12c1p-6, -0x1.e87445c85af17p-4, 0x1.58p5
    },
    {
        0x1.470b91559dcdap-13, 0x1.707320ee36d5p-12, -0x1.3667453bc7011p-8, -0x1.b1e2b32f5f628p-8, 0x1.d5d6c898bd562p-5,
        0x1.2ff955c1d2facp-5, -0x1.d9553c5a4850ap-4, 0x1.5cp5
    },
    {
        0x1.c296a044698aap-14, 0x1.8b930ed1dc57dp-11, -0x1.b33442c262299p-9, -0x1.e67bd9ce2f96p-7, 0x1.4f089924b3eb6p-5,
        0x1.656f1e4cc82d3p-4, -0x1.572836ee6fd45p-4, 0x1.6p5
    },
    {
        0x1.17f2dc80b4089p-15, 0x1.fc7e1065a0d18p-11, -0x1.23e37cada37edp-10, -0x1.3d5d597c4b96dp-6,
        0x1.e1112e4534747p-7, 0x1.d995b22b632e1p-4, -0x1.05d179c1894efp-5, 0x1.64p5
    },
    {
        -0x1.66f6d10cce3f1p-15, 0x1.07c69c89b585dp-10, 0x1.c959a904d6c8ap-13, -0x1.454d1fc59acf2p-6,
        -0x1.5d1f6425031ap-10, 0x1.e8727c4e033f6p-4, -0x1.ae2d399eafcc6p-52, 0x1.6629f4e1e0321p5
    },
    {
        -0x1.e9cf9a3057547p-14, 0x1.6c4e71e793bc8p-11, 0x1.c2e0de20e1449p-9, -0x1.d2ee9f9179c72p-7,
        -0x1.4aca2a3a91ddap-5, 0x1.65a48fe42c9dfp-4, 0x1.42edeecf822fep-4, 0x1.6cp5
    },
    {
        -0x1.482f1584651bdp-13, 0x1.21c52dd9e7788p-12, 0x1.32ce8e1b898a6p-8, -0x1.861dd27bf9f0cp-8,
        -0x1.c97757dbd26f5p-5, 0x1.38a027a12da3cp-5, 0x1.c6116db333d5bp-4, 0x1.7p5
    },
    {
        -0x1.4adf15cb676e7p-13, -0x1.ad8d23a984ba3p-13, 0x1.38b94eaaccbeap-8, 0x1.e5461e5f4ad11p-9,
        -0x1.d77a4647b4686p-5, -0x1.438c8b48efb1ap-6, 0x1.d93796de5bea1p-4, 0x1.74p5
    },
    {
        -0x1.fa54ce83f03adp-14, -0x1.4ae4835355044p-11, 0x1.e51cedbd17f53p-9, 0x1.94d0cf872437fp-7,
        -0x1.729ffa12f88b3p-5, -0x1.27dc62779502dp-4, 0x1.78eb79747eec5p-4, 0x1.78p5
    },
    {
        -0x1.cb17e58a33e0cp-15, -0x1.d7a416677b723p-11, 0x1.c8a1e40202e02p-10, 0x1.256e3086d6ba4p-6,
        -0x1.694fa8937f66cp-6, -0x1.b489796959029p-4, 0x1.7bb111672318cp-5, 0x1.7cp5
    },
    {
        0x1.6f5895dfb3831p-16, -0x1.f65e6f6951a61p-11, -0x1.a4d62173da14ep-13, 0x1.3a800fe7f1f14p-6,
        0x1.3b5a936ff0555p-10, -0x1.d82939b1f3f79p-4, -0x1.8e44442565953p-56, 0x1.7f4b904dc9a53p5
    },
    {
        0x1.92211b00959ffp-14, -0x1.9012f47148592p-11, -0x1.6ffc8cf2fb7d1p-9, 0x1.fd6831d36327bp-7,
        0x1.0c5908796a52dp-5, -0x1.83c106cb0b624p-4, -0x1.045a54e07135ep-4, 0x1.84p5
    },
    {
        0x1.2dabb8b44c6acp-13, -0x1.9f25ac7b0938cp-12, -0x1.191ee2de734edp-8, 0x1.0fcdfd8b5e8b4p-7,
        0x1.a1df791a33913p-5, -0x1.a8f0e3670aa51p-5, -0x1.9d896c57d8fdep-4, 0x1.88p5
    },
    {
        0x1.47f4f02716b1fp-13, 0x1.0b9c967073a49p-14, -0x1.34e5b395d0b8fp-8, -0x1.d85624b2ac598p-11,
        0x1.d02c26b6a2a95p-5, 0x1.989a936e23df6p-9, -0x1.d06e303113ee1p-4, 0x1.8cp5
    },
    {
        0x1.12465b46b7622p-13, 0x1.07f0b1948e932p-11, -0x1.0543d62548dbp-8, -0x1.40a4718b65e2p-7, 0x1.8d058257eb969p-5,
        0x1.d1452653f624bp-5, -0x1.91ac99c6d2688p-4, 0x1.9p5
    },
    {
        0x1.34e8a583f94fap-14, 0x1.abf9b860032dep-11, -0x1.2d1b67c7be135p-9, -0x1.096cca825d8f7p-6,
        0x1.d3c89adab6b74p-6, 0x1.89a94e1329986p-4, -0x1.e35fc90c28103p-5, 0x1.94p5
    },
    {
        -0x1.0d8d8661a591bp-19, 0x1.e5ff5a8703c71p-11, 0x1.7d09f19625689p-13, -0x1.30b35dddc9fbdp-6,
        -0x1.1eb25c43feb23p-10, 0x1.c966ffffea95dp-4, -0x1.8c779e4075b1p-52, 0x1.986d378522b7p5
    },
    {
        -0x1.3806c9569b07bp-14, 0x1.a9dab4d146fb5p-11, 0x1.1b251350ceb7fp-9, -0x1.0dcb2a7281486p-6,
        -0x1.995281aa65ceap-6, 0x1.98d1d14c26c38p-4, 0x1.8972201251351p-5, 0x1.9cp5
    },
    {
        -0x1.0ee03bf7121e1p-13, 0x1.06615ec21a7a9p-11, 0x1.f733a3afd3026p-9, -0x1.52b741dbc7791p-7,
        -0x1.74cbc092b369bp-5, 0x1.054da4edef8cbp-4, 0x1.6fc556069b27p-4, 0x1.ap5
    },
    {
        -0x1.3ec990da5c112p-13, 0x1.251dfc962be86p-14, 0x1.2b5ca9703451ep-8, -0x1.ca8b9e1dec04dp-10,
        -0x1.c08d06daa18c9p-5, 0x1.9c68e99d40d1cp-7, 0x1.bf91a73920956p-4, 0x1.a4p5
    },
    {
        -0x1.20bab0045d103p-13, -0x1.87c73ad430df5p-12, 0x1.11d3b0ccd2d2fp-8, 0x1.d6bd78cc05a45p-8,
        -0x1.9e5d47d0f53b2p-5, -0x1.518a34932eefcp-5, 0x1.a18c789fdb7cep-4, 0x1.a8p5
    },
    {
        -0x1.7977a29527591p-14, -0x1.7a9863598a05p-11, 0x1.6bc9d2323e378p-9, 0x1.d404b404bc05bp-7,
        -0x1.1797ee6a8c4f1p-5, -0x1.59e8d69fb4d5p-4, 0x1.1e0f1fe493f75p-4, 0x1.acp5
    },
    {
        -0x1.1860cc3c1bb54p-16, -0x1.ddbe99ed200a9p-11, -0x1.6081221e0f9e6p-13, 0x1.27c3095484be8p-6,
        0x1.06229721064eap-10, -0x1.bbf245fadb727p-4, -0x1.9f6a4816aab2ep-52, 0x1.b18ee87b4e7p5
    },
    {
        0x1.ba29e3890ff32p-15, -0x1.b9da47b21a559p-11, -0x1.8b8e2982c8da3p-10, 0x1.16dc91665f7b2p-6,
        0x1.198443b497b1p-6, -0x1.a504972d47988p-4, -0x1.0a110372da38dp-5, 0x1.b4p5
    },
    {
        0x1.d91b9db5fdad2p-14, -0x1.34eb4f936d74p-11, -0x1.b5dc7e22ac995p-9, 0x1.8b543ce419fd4p-7, 0x1.43390f3c7f708p-5,
        -0x1.2e796be83cc55p-4, -0x1.3db92ddd31f9dp-4, 0x1.b8p5
    },
    {
        0x1.2fe43701d3797p-13, -0x1.9807f9410460fp-13, -0x1.1c9943c90443p-8, 0x1.1448727f3952fp-8, 0x1.a94f2c47e038fp-5,
        -0x1.bd390e6d6923ep-6, -0x1.a74dc34a10028p-4, 0x1.bcp5
    },
    {
        0x1.28b2b59fd11adp-13, 0x1.ff895e4522e5bp-13, -0x1.1866359fd5eccp-8, -0x1.2cc3bad232acep-8,
        0x1.a6e1c93174363p-5, 0x1.a5139c1fbc7eap-6, -0x1.a8c3042fb69c1p-4, 0x1.cp5
    },
    {
        0x1.b2c2a3ad53d2p-14, 0x1.449f10113098cp-11, -0x1.9ff2d9bbc6abcp-9, -0x1.8fb983eeb5f66p-7, 0x1.3d76ae34234a4p-5,
        0x1.264485eb685bp-4, -0x1.42abffdfba5fap-4, 0x1.c4p5
    },
    {
        0x1.5772138947cadp-15, 0x1.b8a021d931b8bp-11, -0x1.5634587a2e0efp-10, -0x1.12c373b1bfa3fp-6,
        0x1.0f45e767d446dp-6, 0x1.99e493f1604bdp-4, -0x1.1da7bfb0fc374p-5, 0x1.c8p5
    },
    {
        -0x1.d35a79d6c1115p-16, 0x1.ceb87ade5c1aap-11, 0x1.3fc27018e5a2dp-13, -0x1.1f912b4954c12p-6,
        -0x1.e1c5d28feeb5cp-11, 0x1.af9cb43141799p-4, -0x1.8e727b71a083dp-52, 0x1.cab0a1968b221p5
    },
    {
        -0x1.8ef07abcae933p-14, 0x1.5ae7f6b4c0583p-11, 0x1.6f9d13addf509p-9, -0x1.b94e286ace56ap-7,
        -0x1.0e2b0702a2fc9p-5, 0x1.4fbcd92bc2ccep-4, 0x1.0861269535f93p-4, 0x1.dp5
    },
    {
        -0x1.1bd75263d2b95p-13, 0x1.43b6c59eb89f8p-12, 0x1.09219ce3997d7p-8, -0x1.a7f8f72083b84p-8,
        -0x1.8b365a7ff767ap-5, 0x1.4b96acadc6fb3p-5, 0x1.8860d3904814cp-4, 0x1.d4p5
    },
    {
        -0x1.2a6ada6a71ce9p-13, -0x1.e83eec562d96cp-14, 0x1.193392823ae15p-8, 0x1.0c15fb1004fd3p-9,
        -0x1.a6e5b268903ccp-5, -0x1.58e32074ba666p-7, 0x1.a7a0c121baf9bp-4, 0x1.d8p5
    },
    {
        -0x1.e078ef0747afcp-14, -0x1.0b3063e83994p-11, 0x1.c94f378da5af4p-9, 0x1.475a277da1402p-7,
        -0x1.5b4d807e1850cp-5, -0x1.df7db127e3919p-5, 0x1.5f550310ca1cep-4, 0x1.dcp5
    },
    {
        -0x1.f03d902bae865p-15, -0x1.969378a5ae5ffp-11, 0x1.e36efddd5b566p-10, 0x1.f9c2ddee34d69p-7,
        -0x1.776bd8819a7dep-6, -0x1.784c447216a7p-4, 0x1.83f6ebdd327aep-5, 0x1.ep5
    },
    {
        0x1.46a5e3b67c14dp-17, -0x1.be7ed0f20e27ap-11, -0x1.28960a276e45ap-13, 0x1.18039c9bcc0fp-6,
        0x1.bcba8f0917a42p-11, -0x1.a4407da353a01p-4, -0x1.67533047d83fbp-52, 0x1.e3d2619226875p5
    },
    {
        0x1.40c90fcb0d535p-14, -0x1.782b72d1ae7e8p-11, -0x1.25dde9f003f33p-9, 0x1.dc717c6562ef5p-7,
        0x1.ad527856cc6ebp-6, -0x1.68f30db0435c4p-4, -0x1.a17cdc9f34138p-5, 0x1.e8p5
    },
    {
        0x1.033ffdb3cca75p-13, -0x1.aef8db9d42a19p-12, -0x1.e30c65af38853p-9, 0x1.1600c435cf0b2p-7,
        0x1.6716969e39c94p-5, -0x1.accbeae3e32bbp-5, -0x1.639a223ee283ep-4, 0x1.ecp5
    },
    {
        0x1.26312289c0f42p-13, -0x1.cf24e9b3f0dc3p-18, -0x1.1484654ad9da2p-8, 0x1.adbfdfe4afa85p-12,
        0x1.9ed46ead1c96ap-5, -0x1.0c4750cf3b647p-8, -0x1.9e8f32fdfacbep-4, 0x1.fp5
    },
    {
        0x1.0139084988b14p-13, 0x1.9ee00032eade3p-12, -0x1.e7bc877207893p-9, -0x1.f89692b595469p-8, 0x1.71048cb6781bp-5,
        0x1.6eba3ceec9061p-5, -0x1.73f39b8ba1935p-4, 0x1.f4p5
    },
    {
        0x1.3bd2b2a870cfdp-14, 0x1.6e4bdad1a8682p-11, -0x1.3022a289cb20fp-9, -0x1.c66cc6032df44p-7,
        0x1.d340d3c443293p-6, 0x1.513238b015ea7p-4, -0x1.ddf5371a1615cp-5, 0x1.f8p5
    },
    {
        0x1.ff741125a7d89p-18, 0x1.b58b2a95681b9p-11, 0x1.122519944397dp-13, -0x1.11074f43deebp-6,
        -0x1.9c32326a2b0fap-11, 0x1.99be74047c0c5p-4, 0x1.2f9257b96277p-58, 0x1.fcf4276983013p5
    },
};

}  // namespace orvik::zym::bessel
