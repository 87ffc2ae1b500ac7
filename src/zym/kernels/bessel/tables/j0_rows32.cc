// Written by tools/approx from the rule in zym/kernels/bessel/tables.h; do not edit.
#include "zym/kernels/bessel/tables.h"

// clang-format off
namespace orvik::zym::bessel {

alignas(64) const double kJ0Rows32[128][8] = {
    {
        -0x1.c49d405e35ec5p-12, -0x1.dbbb7fcee0f3ap-21, 0x1.0000897107ed9p-6, -0x1.0f884c47f36a5p-27,
        -0x1.fffffffa09cdep-3, -0x1.54bab4d2d7e86p-41, 0x1p0, 0.0
    },
    {
        -0x1.95aab998bfap-12, -0x1.4863015aec9adp-10, 0x1.cba195dd0d652p-7, 0x1.ee6a290f163bbp-6, -0x1.d0d3c8b36c587p-3,
        -0x1.f02a71edb025fp-3, 0x1.e07f1d54c3f34p-1, 0x1p-1
    },
    {
        -0x1.0e188d7f17779p-12, -0x1.252d386a5476dp-9, 0x1.39c348eebd168p-7, 0x1.bbeeef5291614p-5,
        -0x1.4cf35c907d1b6p-3, -0x1.c29c9ee35afa3p-2, 0x1.87c7fdbd7b8fp-1, 0x1p0
    },
    {
        -0x1.3669b104c1775p-14, -0x1.6780e22fbdf2ep-9, 0x1.a6809ea8b0db7p-9, 0x1.13422b02ee4d3p-4,
        -0x1.1e742995fc3ebp-4, -0x1.1da9da99bb20dp-1, 0x1.060e46ce9651bp-1, 0x1.8p0
    },
    {
        0x1.03122ad5a77dap-13, -0x1.5d82fad2f2c18p-9, -0x1.e1bc46562d57ep-9, 0x1.1146bb7fd164ap-4, 0x1.081365fa08115p-5,
        -0x1.27487954a8901p-1, 0x1.ca873fb24cef8p-3, 0x1p1
    },
    {
        0x1.2e0c31346b8e2p-12, -0x1.1fd068cbb05f5p-9, -0x1.1bb83922cc292p-7, 0x1.cfaeaab49dccap-5, 0x1.ba1df0327247fp-4,
        -0x1.09cdb367327ccp-1, -0x1.19b7921f03c8ep-54, 0x1.33d152e971b4p1
    },
    {
        0x1.9e08534fc7749p-12, -0x1.0162699c3dad4p-10, -0x1.ba735b44dfa5p-7, 0x1.e367c178bc12p-6, 0x1.7e067bc7a50edp-3,
        -0x1.5b324586d5c8bp-2, -0x1.0a4b0f4642392p-2, 0x1.8p1
    },
    {
        0x1.aecb94cf7a837p-12, 0x1.051aaf35c9f3p-12, -0x1.d8d4a3b24f102p-7, 0x1.1507ddbb0a74ap-10, 0x1.ad718c2b9bc81p-3,
        -0x1.1959639c0cd78p-3, -0x1.854034ce30d51p-2, 0x1.cp1
    },
    {
        0x1.62483ec202288p-12, 0x1.6d019c63b1bb5p-10, -0x1.93f069ea22737p-7, -0x1.aceb572814908p-6,
        0x1.85c63964921ecp-3, 0x1.0e8372cebdc18p-4, -0x1.96ae7093e94f9p-2, 0x1p2
    },
    {
        0x1.960aa26034974p-13, 0x1.20d0575ba17a9p-9, -0x1.fabe446c561dap-8, -0x1.7d9214e786b8ep-5, 0x1.13a80cba34aabp-3,
        0x1.d93636275cb16p-3, -0x1.483c4ba446893p-2, 0x1.2p2
    },
    {
        0x1.788dcf9ef17f7p-17, 0x1.49ab34e51d26cp-9, -0x1.bf94df98b9c64p-10, -0x1.cbf818e2e22afp-5,
        0x1.cb156341f6e77p-5, 0x1.4f70e7c42fabfp-2, -0x1.6bb7db255cb89p-3, 0x1.4p2
    },
    {
        -0x1.62f8a1d1d1b83p-13, 0x1.2759fed1aec95p-9, 0x1.2f7a197621adbp-8, -0x1.b214db390d42ap-5,
        -0x1.f8f72a2b522bbp-6, 0x1.5c6e609b26f16p-2, -0x1.fbb40985f6e34p-56, 0x1.6148f5b2c2e45p2
    },
    {
        -0x1.4051eb0121d0bp-12, 0x1.95f08f0e018ccp-10, 0x1.2ff80c669ecfcp-7, -0x1.427f7d5195a8p-5,
        -0x1.92f68149703f4p-4, 0x1.1b53036405ee4p-2, 0x1.3485802986392p-3, 0x1.8p2
    },
    {
        -0x1.8507f524069p-12, 0x1.0d7c2525cf1bp-11, 0x1.85f0ad2a1e8a9p-7, -0x1.22efd04c74a09p-6, -0x1.2292a2e32e5e6p-3,
        0x1.3b1125f0d8b9p-3, 0x1.0a563d835b27bp-2, 0x1.ap2
    },
    {
        -0x1.716eda4bf316dp-12, -0x1.362294b75ed04p-11, 0x1.8256ab50d3ce4p-7, 0x1.a32c9e62bff44p-8,
        -0x1.33f7591622df7p-3, 0x1.32e4be45f6539p-8, 0x1.3347faf45b2a3p-2, 0x1.cp2
    },
    {
        -0x1.0c6ae3383761ep-12, -0x1.8ea14e1e3a21ep-10, 0x1.29a1b5fdc7aafp-7, 0x1.c52833e2a6f2ap-6,
        -0x1.fc8822dc3ae2fp-4, -0x1.14fd20a0b3554p-3, 0x1.10bb57e0e56e6p-2, 0x1.ep2
    },
    {
        -0x1.bbf717ed70e2ep-14, -0x1.0fa6b670c22e6p-9, 0x1.2614601fe5bcbp-8, 0x1.53a3d002d5839p-5,
        -0x1.237954ab02b99p-4, -0x1.e0890555199d9p-3, 0x1.5f8a7557e7025p-3, 0x1p3
    },
    {
        0x1.254aba993ab3bp-14, -0x1.0fa429453f7aap-9, -0x1.48fdd74379769p-9, 0x1.68b9c8c3f0c08p-5, 0x1.00f8058a6f119p-6,
        -0x1.15f7977e93dc9p-2, -0x1.6e8eeb22e5818p-54, 0x1.14eb56cccdecap3
    },
    {
        0x1.bace4192c4d09p-13, -0x1.c20c2ca2a2cfap-10, -0x1.7ce1477668949p-8, 0x1.38f5345fed375p-5,
        0x1.e1a68d205ef3bp-5, -0x1.f666069bc5446p-3, -0x1.7201a81c29184p-4, 0x1.2p3
    },
    {
        0x1.414f9b3fa1c7dp-12, -0x1.e4a1e968075a3p-11, -0x1.2cc9cf17679d3p-7, 0x1.76db863b9da86p-6,
        0x1.afee691bc416ap-4, -0x1.4a45017c58cbep-3, -0x1.8d2a83e892df2p-3, 0x1.3p3
    },
    {
        0x1.588513d66f3dp-12, 0x1.8acc2603464b4p-15, -0x1.5139a6a30d922p-7, 0x1.896dfb1bb92f8p-9, 0x1.004a326cb7417p-3,
        -0x1.6420f4e70fdd7p-5, -0x1.f7ad2b89e1e54p-3, 0x1.4p3
    },
    {
        0x1.2020db79ad258p-12, 0x1.fc4a671a07724p-11, -0x1.265d06f01139ep-7, -0x1.10f3293388cafp-6,
        0x1.d546a794ba243p-4, 0x1.42f83b791dc1bp-4, -0x1.e4a7cefefc5fap-3, 0x1.5p3
    },
    {
        0x1.4f0fcf8cfb7d4p-13, 0x1.ac251ee7617ap-10, -0x1.7247394f283dep-8, -0x1.02a0ffcbd19d9p-5, 0x1.3daefb9c49d88p-4,
        0x1.6a0e692132151p-3, -0x1.5e99052d216ddp-3, 0x1.6p3
    },
    {
        0x1.8dc7073a0ee79p-17, 0x1.f0a43f25139a8p-10, -0x1.2a36909475ffep-10, -0x1.3b20fba86c8e4p-5,
        0x1.87893fbff84adp-6, 0x1.d3b82b8b7489p-3, -0x1.151c4e695bae6p-4, 0x1.7p3
    },
    {
        -0x1.07e002bebebd9p-13, 0x1.e8a5cf7c97603p-10, 0x1.a4500ff4a2d6fp-10, -0x1.38d15e5db7841p-5,
        -0x1.42ff02dce6e24p-7, 0x1.dc13e66137e2p-3, -0x1.2d8ed368e0843p-54, 0x1.79544008272b6p3
    },
    {
        -0x1.ff1a05df1278ap-13, 0x1.27b728a5fb66fp-10, 0x1.d04d77614788ap-8, -0x1.9e024535277cep-6,
        -0x1.47ee70ea16b1bp-4, 0x1.52e92c4081eap-3, 0x1.2cd18c19effep-3, 0x1.9p3
    },
    {
        -0x1.33915e65f409p-12, 0x1.40cbf8edd268bp-12, 0x1.24040735ac849p-7, -0x1.248e1a9093136p-7,
        -0x1.b2dcc9de28b97p-4, 0x1.2005d260adf12p-4, 0x1.a7c8df532f9fep-3, 0x1.ap3
    },
    {
        -0x1.1e2a69f17f0f7p-12, -0x1.25c898a1f7afap-11, 0x1.192150c6add7dp-7, 0x1.247da31cc474dp-7,
        -0x1.b2868d4410d43p-4, -0x1.37b3261450e9bp-5, 0x1.b84c3d639ae97p-3, 0x1.bp3
    },
    {
        -0x1.8ceca9bf1cd22p-13, -0x1.4c2020c865ad8p-10, 0x1.98c2e98df7f4ep-8, 0x1.89da63999c42bp-6,
        -0x1.4ad8fc42f52d4p-4, -0x1.1126fe3410b54p-3, 0x1.5e5bc548dc129p-3, 0x1.cp3
    },
    {
        -0x1.0b60fac215911p-14, -0x1.b16129600c765p-10, 0x1.47a917fc5cd25p-9, 0x1.0dd37aa19355dp-5,
        -0x1.2ff17b823e58cp-5, -0x1.8c24bf1794d8p-3, 0x1.669572909861ap-4, 0x1.dp3
    },
    {
        0x1.27982cc6e570bp-14, -0x1.b507ec9232944p-10, -0x1.2a524a0187984p-10, 0x1.17798d6ec112bp-5,
        0x1.c54bb1ca8e364p-8, -0x1.a701d0fa7b261p-3, -0x1.50be2ef09843ep-53, 0x1.ddca13ef271d2p3
    },
    {
        0x1.8be646d543bb6p-13, -0x1.4419c4aba872p-10, -0x1.60ba75581b752p-8, 0x1.b18eda5ed4e84p-6, 0x1.eb989f12d52c5p-5,
        -0x1.5673dd216ace6p-3, -0x1.bf68a3956256bp-4, 0x1.fp3
    },
    {
        0x1.0d2f19a753035p-12, -0x1.227bebecda39fp-11, -0x1.f67cd4fa17a5fp-8, 0x1.ae21eb6632afdp-7,
        0x1.71c39ecd0cbaep-4, -0x1.72444f0c2ca0ap-4, -0x1.66317c56e20aap-3, 0x1p4
    },
    {
        0x1.12dda24af2a0bp-12, 0x1.f77dffb84fc6ep-13, -0x1.083a0f56b63b4p-7, -0x1.80fe7749ee6d1p-9,
        0x1.9178e1f4703a3p-4, 0x1.79c3753a8301fp-8, -0x1.92300a6dd64b9p-3, 0x1.08p4
    },
    {
        0x1.aeb15f14a17d7p-13, 0x1.f4d23d23ae6acp-11, -0x1.abf30abb5382cp-8, -0x1.2423063e19a7ep-6,
        0x1.5018676274239p-4, 0x1.900cd65754a2p-4, -0x1.5bdc8bd09b624p-3, 0x1.1p4
    },
    {
        0x1.a95ffe3f39b38p-14, 0x1.755371b5ec66fp-10, -0x1.c89a8e7c69439p-9, -0x1.cb6b4be6514b6p-6,
        0x1.8017303ed861cp-5, 0x1.4eaf20f89de8fp-3, -0x1.a65716c450dd6p-4, 0x1.18p4
    },
    {
        -0x1.bcb4be8163152p-16, 0x1.913c63e573203p-10, 0x1.c156a3ca07238p-11, -0x1.fd7c450d520adp-6,
        -0x1.5467ce3d3d53ep-8, 0x1.8077f56e1817cp-3, 0x1.a2122af76659ep-53, 0x1.212313f8a19f6p4
    },
    {
        -0x1.26a56945e2abap-13, 0x1.5205bba39781ap-10, 0x1.019fd18fc2d91p-8, -0x1.b8f89802e3708p-6,
        -0x1.60f5f03d1c1dbp-5, 0x1.5544048a61087p-3, 0x1.3c112e0695b83p-4, 0x1.28p4
    },
    {
        -0x1.cf00805413f9cp-13, 0x1.81dbe3eef111fp-11, 0x1.ab32c6901ae1p-8, -0x1.09f6555ed22dap-6,
        -0x1.37b0cac384abcp-4, 0x1.b0f3fbd61acabp-4, 0x1.2c4c0e3fc086ep-3, 0x1.3p4
    },
    {
        -0x1.0289121c3f0edp-12, 0x1.574f90170394bp-16, 0x1.ea5656a92b393p-8, -0x1.fa9b1a5ddce62p-10,
        -0x1.707c3a590e7dbp-4, 0x1.560cc764040c5p-6, 0x1.6e4aea4f3742ep-3, 0x1.38p4
    },
    {
        -0x1.be9bf31d65d8ap-13, -0x1.65f34eebe436dp-11, 0x1.b28df1a80efcbp-8, 0x1.98c7d47b0ebc9p-7,
        -0x1.4f390974c84fbp-4, -0x1.11bf9c20cfd7dp-4, 0x1.561106f7bed64p-3, 0x1.4p4
    },
    {
        -0x1.0f310541b7857p-13, -0x1.3c3219e87b995p-10, 0x1.1401ec86d83dep-8, 0x1.81a02ca76312p-6,
        -0x1.bc3679e920924p-5, -0x1.170cb2a610d22p-3, 0x1.d76fe90289667p-4, 0x1.48p4
    },
    {
        -0x1.3f1b8ff57ca38p-17, -0x1.79c5b8a29f6f1p-10, -0x1.64749b6c3248dp-11, 0x1.d7063c692718p-6,
        0x1.0ba9d9b9da607p-8, -0x1.62d93aa13014p-3, 0x1.8b4b912da2218p-54, 0x1.5362dd173f792p4
    },
    {
        0x1.98f043dcf043ep-14, -0x1.5600ac73a4032p-10, -0x1.5c41593e0d477p-9, 0x1.b745bfbd85bbp-6, 0x1.cf5d5b66427d3p-6,
        -0x1.4f91ae376cc5p-3, -0x1.90eee7a5df2ecp-5, 0x1.58p4
    },
    {
        0x1.85cde77d11767p-13, -0x1.c8537007fb97ap-11, -0x1.6453172f275adp-8, 0x1.2facd8432b838p-6,
        0x1.02009de20205bp-4, -0x1.dff5d15b3fde2p-4, -0x1.ee303de5dd5c5p-4, 0x1.6p4
    },
    {
        0x1.dde6a885db6efp-13, -0x1.f0891b52ca36fp-13, -0x1.c0ee938d16d6dp-8, 0x1.88081e7e9b3e4p-8,
        0x1.4ec543195df0bp-4, -0x1.623d1dc7553a9p-5, -0x1.4ad5a654f559p-3, 0x1.68p4
    },
    {
        0x1.c1ad5b48a3d5dp-13, 0x1.cda4fd7b17a1cp-12, -0x1.afa61f79befafp-8, -0x1.fb26fe89ea0ep-8, 0x1.491a3962b54f2p-4,
        0x1.43be06555fd11p-5, -0x1.4c9f12818cf3fp-3, 0x1.7p4
    },
    {
        0x1.3a38a9fbca7e7p-13, 0x1.058077a9d6a6dp-10, -0x1.36ecab4a8dd6bp-8, -0x1.3c4258c85a00fp-6,
        0x1.e845b95b74d2ep-5, 0x1.c66f768a42237p-4, -0x1.fb9c2b59a3d08p-4, 0x1.78p4
    },
    {
        0x1.a85a2fd52e7e3p-15, 0x1.55cd2cad55d1cp-10, -0x1.d781b1ecf2ca7p-10, -0x1.a9900f87c5ff1p-6,
        0x1.980f6160fb5ffp-6, 0x1.3b784f1a40b2ap-3, -0x1.cca36e92efd07p-5, 0x1.8p4
    },
    {
        -0x1.c83133bfcc8fbp-15, 0x1.5ef5d07dffbd9p-10, 0x1.207ff37a55565p-11, -0x1.b810bdc4f910fp-6,
        -0x1.b3295c2863b6ep-9, 0x1.4b2a2ec5c4a62p-3, -0x1.55e059345b43p-53, 0x1.85a3b930156ddp4
    },
    {
        -0x1.3ee62eb9209afp-13, 0x1.fb27d9c15fba1p-11, 0x1.20dcaf0d35047p-8, -0x1.4aadc11f97125p-6,
        -0x1.9ed89be93ea0ap-5, 0x1.00b7a1ae2ae7cp-3, 0x1.8a4f09ddc8214p-4, 0x1.9p4
    },
    {
        -0x1.b20a00091ce0bp-13, 0x1.b5b3857412674p-12, 0x1.94cc428e00d79p-8, -0x1.32f8974ffbedep-7,
        -0x1.2c05cc3ccd07ap-4, 0x1.fc4d3656afd1ap-5, 0x1.270a0f7a0a0eep-3, 0x1.98p4
    },
    {
        -0x1.baafd519cec74p-13, -0x1.d2d46828025cap-13, 0x1.a4f1de018af12p-8, 0x1.cac6b272b8d7dp-9,
        -0x1.3e4d2c50bddedp-4, -0x1.ed04bc4d88dbep-7, 0x1.3f7c91b2effe2p-3, 0x1.ap4
    },
    {
        -0x1.58b06d428bc42p-13, -0x1.a1f2e6919a544p-11, 0x1.4f473bd806e7cp-8, 0x1.f4b2f57a4ebf6p-7,
        -0x1.03437bb730b8dp-4, -0x1.647745291ac3ep-4, 0x1.09fd47e51ce39p-3, 0x1.a8p4
    },
    {
        -0x1.4afce9b0d4a3ap-14, -0x1.328186a35f194p-10, 0x1.549b0931e7008p-9, 0x1.7b4cc7ecb82bfp-6,
        -0x1.153b013a7786p-5, -0x1.17b9bb6028e26p-3, 0x1.29f36dee23384p-4, 0x1.bp4
    },
    {
        0x1.8fe3a3109c3c5p-16, -0x1.48a892a83c08bp-10, -0x1.e1d361758c837p-12, 0x1.9e74a25c5a7b2p-6,
        0x1.6ac0da1904484p-9, -0x1.37aac8ba08145p-3, 0x1.1c17abe35eaaep-52, 0x1.b7e54a5fd5f11p4
    },
    {
        0x1.f4caed9196613p-14, -0x1.0ebe87da68878p-10, -0x1.c0bcecb5aee67p-9, 0x1.5c72a0ee058a9p-6, 0x1.3ebfba0f3908p-5,
        -0x1.0b5e94207db8cp-3, -0x1.2ba6af7c7f4e2p-4, 0x1.cp4
    },
    {
        0x1.82a7d9f9edd9p-13, -0x1.298482dfdf8fcp-11, -0x1.666b5bfde81d8p-8, 0x1.8f1b4a233ba97p-7, 0x1.083a5305051f9p-4,
        -0x1.3e43c76a4d361p-4, -0x1.02a4ecb86e6e4p-3, 0x1.c8p4
    },
    {
        0x1.ab6bcbbd3d94ep-13, 0x1.c36a6867c2497p-16, -0x1.939612281a2a8p-8, 0x1.3dfb27306f45fp-12,
        0x1.2f48b224f02bbp-4, -0x1.c670a5dbde8c4p-8, -0x1.2ecb55488a119p-3, 0x1.dp4
    },
    {
        0x1.6c706d0f835b1p-13, 0x1.3d1f191fdb52fp-11, -0x1.5e77092d6e3b4p-8, -0x1.770773dedd54bp-7,
        0x1.0c38f9f4337d5p-4, 0x1.07640706dd40bp-4, -0x1.10afd307647aep-3, 0x1.d8p4
    },
    {
        0x1.ad20252b6da76p-14, 0x1.0d4a3014ab447p-10, -0x1.ab050e4fb47c2p-9, -0x1.4b68d3c5a1dfap-6,
        0x1.518cbe872347bp-5, 0x1.e6678397d7fa2p-4, -0x1.61c3650e6eb9dp-4, 0x1.ep4
    },
    {
        0x1.d355dd9c8aa29p-19, 0x1.39eaf1f0356ddp-10, 0x1.99d9c51221f34p-12, -0x1.88d4ea85dc446p-6,
        -0x1.34695edb40cfap-9, 0x1.27407e0207bb2p-3, 0x1.66608ac164dbdp-54, 0x1.ea27591cbbed2p4
    },
    {
        -0x1.7104e53fe5641p-14, 0x1.18b350c63e2fdp-10, 0x1.4583e7034debdp-9, -0x1.65fa3ba8ffebfp-6,
        -0x1.c6a65e2e40f9ap-6, 0x1.106f0d86af8adp-3, 0x1.a37f43abe5fd6p-5, 0x1.fp4
    },
    {
        -0x1.50ab18ba3e02bp-13, 0x1.69c59110df0e9p-11, 0x1.364dd7014926fp-8, -0x1.da30fa8e08acdp-7,
        -0x1.c71b82288ac81p-5, 0x1.72772e6591d1cp-4, 0x1.bb58bda614228p-4, 0x1.f8p4
    },
    {
        -0x1.952da6cb90cc7p-13, 0x1.370ceb9ef9ce1p-13, 0x1.7c77999ee7357p-8, -0x1.e572f2dd2cfcep-9,
        -0x1.1c7ccd6f2229ep-4, 0x1.b3a277e987b81p-6, 0x1.1ac92af901123p-3, 0x1p5
    },
    {
        -0x1.76c198fd3c115p-13, -0x1.b9768c27e9bp-12, 0x1.6577c6fabd5e2p-8, 0x1.fedaec153822fp-8, -0x1.0f8ebe5947df7p-4,
        -0x1.5e0d2d3f63903p-5, 0x1.12401361680bbp-3, 0x1.04p5
    },
    {
        -0x1.fc6c0c82bb1dfp-14, -0x1.cd5c1f1a81ff6p-11, 0x1.f08d1abfb672dp-9, 0x1.1a4d600c56f1ep-6,
        -0x1.81ee7ffe7fdbbp-5, -0x1.9c23595955e54p-4, 0x1.8e6bb141c87e1p-4, 0x1.08p5
    },
    {
        -0x1.27e4a6324228fp-15, -0x1.25679575d6349p-10, 0x1.425af5575bc2cp-10, 0x1.6e295813bd2bep-6,
        -0x1.12fd48ce89ae4p-6, -0x1.10d01263aaf96p-3, 0x1.339065c1a3a6ep-5, 0x1.0cp5
    },
    {
        0x1.b5d63821325b6p-15, -0x1.2e9d5b26caf1ap-10, -0x1.5e69e71c88128p-12, 0x1.763ff8acfac9fp-6,
        0x1.0a66a4906b20dp-9, -0x1.192f23c7f4882p-3, 0x1.cc62c8409daa7p-53, 0x1.0e34e13a66fe6p5
    },
    {
        0x1.1ce4b81092ae5p-13, -0x1.9cb49ba79030ap-11, -0x1.050096f5bf77cp-8, 0x1.0ab254b713a3p-6, 0x1.7c9166971f76bp-5,
        -0x1.9b6c291d9f19p-4, -0x1.70a486cc87db4p-4, 0x1.14p5
    },
    {
        0x1.79043bb9b7081p-13, -0x1.3e8b3336113cp-12, -0x1.605f3bbef7c34p-8, 0x1.b820a125480bbp-8, 0x1.065aa37677d04p-4,
        -0x1.685fb1389cbabp-5, -0x1.03c7ab589e02cp-3, 0x1.18p5
    },
    {
        0x1.78a10180a357bp-13, 0x1.0263478fe0002p-12, -0x1.65101a6d4be8p-8, -0x1.1c6d4e59c49bfp-8, 0x1.0db9cd0f17e5fp-4,
        0x1.6e262e3daf9e3p-6, -0x1.0f03d9d922667p-3, 0x1.1cp5
    },
    {
        0x1.1d15bd24e3dd3p-13, 0x1.7e64ff52c47cdp-11, -0x1.13241062d9f43p-8, -0x1.d0f3493e0313dp-7,
        0x1.a70964ac4f57cp-5, 0x1.51390fea538cep-4, -0x1.b0676c3ca96e8p-4, 0x1.2p5
    },
    {
        0x1.f7069e396c155p-15, 0x1.0dc1e6e781a53p-10, -0x1.fe8b0624d8fp-10, -0x1.4f3a44583718p-6, 0x1.9b09709ed011fp-6,
        0x1.f195e934fbfc2p-4, -0x1.b64d454cd12c6p-5, 0x1.24p5
    },
    {
        -0x1.cbcd89f4f0fc2p-16, 0x1.1d791da2e1c5ap-10, 0x1.36aefb803618p-12, -0x1.6613f370572bbp-6,
        -0x1.d242f6b16ece4p-10, 0x1.0cf3ed08904b5p-3, 0x1.18e7b1f5c77aep-53, 0x1.275637a9619ecp5
    },
    {
        -0x1.d035f157adbp-14, 0x1.c31f64eddb2b8p-11, 0x1.a634471f05b85p-9, -0x1.20c996dfd2ff3p-6, -0x1.318daa9aa6271p-5,
        0x1.b9a4f87a6f85dp-4, 0x1.25c6b50d4a803p-4, 0x1.2cp5
    },
    {
        -0x1.57df8498433fp-13, 0x1.cd2243bd01818p-12, 0x1.400a64251bf62p-8, -0x1.323906e2087d3p-7,
        -0x1.daaf15e78109cp-5, 0x1.e4a779bd4935ap-5, 0x1.d44e90f2136bdp-4, 0x1.3p5
    },
    {
        -0x1.72e455ef18dbcp-13, -0x1.58581e08ccb55p-14, 0x1.5ded52079a505p-8, 0x1.1f741e4590ccfp-10,
        -0x1.072682f257c6ap-4, -0x1.a9350d4a7f9b8p-9, 0x1.0752b05c73c4dp-3, 0x1.34p5
    },
    {
        -0x1.33b04f45365bcp-13, -0x1.2ebb490991de8p-11, 0x1.26873c886d807p-8, 0x1.6cf6ef6f6bfeap-7,
        -0x1.c164c2cb1b775p-5, -0x1.065fb15fc3a6ep-4, 0x1.c81f026dfbe7dp-4, 0x1.38p5
    },
    {
        -0x1.55656c66b6998p-14, -0x1.e5bc54f1748ffp-11, 0x1.50b755c3f0109p-9, 0x1.2c99f8312a241p-6,
        -0x1.0846eb1d6b7dap-5, -0x1.bc7f694069e6fp-4, 0x1.1387b6b29db15p-4, 0x1.3cp5
    },
    {
        0x1.20d6098446bdbp-18, -0x1.11ed96a075bp-10, -0x1.120539e6fc9efp-12, 0x1.57d31438966dep-6,
        0x1.9c80345234179p-10, -0x1.0230b97878664p-3, -0x1.376cc57901722p-55, 0x1.4077a7ed6293ap5
    },
    {
        0x1.661d579e10b3ap-14, -0x1.ddaffa964c35bp-11, -0x1.426f07c9a52fap-9, 0x1.2fbb465d80854p-6,
        0x1.cdbe4db0477dap-6, -0x1.cd9495bf6d43ap-4, -0x1.b6f303ef20bb2p-5, 0x1.44p5
    },
    {
        0x1.32a01559c04f2p-13, -0x1.23afa462af545p-11, -0x1.1c32e501efb52p-8, 0x1.7be1443a0c867p-7,
        0x1.a3db9ba9be8adp-5, -0x1.2753a702d546cp-4, -0x1.9ca79dd7fd59dp-4, 0x1.48p5
    },
    {
        0x1.664e5097d1c0ep-13, -0x1.290c493090565p-14, -0x1.50b288019933dp-8, 0x1.f6155302032adp-10,
        0x1.f880023153487p-5, -0x1.da175b9b8ffdp-7, -0x1.f71271bc84b13p-4, 0x1.4cp5
    },
    {
        0x1.4276635067c13p-13, 0x1.bed7d54515801p-12, -0x1.32cfc4134735bp-8, -0x1.09d279dbb8bb1p-7,
        0x1.d17ccb6f6bf85p-5, 0x1.78c82cac2996ap-5, -0x1.d5f9151f1c01dp-4, 0x1.5p5
    },
    {
        0x1.a19b80cb35e36p-14, 0x1.aab158d91fe7cp-11, -0x1.9587c9141b655p-9, -0x1.06f7f10ac9298p-6,
        0x1.39c44bafb833dp-5, 0x1.8349173c60cd8p-4, -0x1.42e11f108c177p-4, 0x1.54p5
    },
    {
        0x1.1e4390d7ef857p-16, 0x1.0b5ff88c4981p-10, 0x1.ee90e11c8dbd2p-13, -0x1.4b247a1a19117p-6,
        -0x1.7055e12155c21p-10, 0x1.f13faf296c132p-4, -0x1.df12b66b26573p-54, 0x1.59992c65d0d8dp5
    },
    {
        -0x1.f9f0881dddd71p-15, 0x1.ed03b9570ac61p-11, 0x1.bfe2956ede5a8p-10, -0x1.37dfdb9780bf8p-6,
        -0x1.3ac2e33133706p-6, 0x1.d7ae19907b432p-4, 0x1.251328a50d5efp-5, 0x1.5cp5
    },
    {
        -0x1.0a1eb79fe03ccp-13, 0x1.56a31630914d8p-11, 0x1.eb245d4162883p-9, -0x1.b909374088967p-7,
        -0x1.69387165f9094p-5, 0x1.53299d805f85ap-4, 0x1.61832230ed0f4p-4, 0x1.6p5
    },
    {
        -0x1.539a3f9064d19p-13, 0x1.baec0321b8a7p-13, 0x1.3e00eec09be4cp-8, -0x1.325760b362aaap-8,
        -0x1.dae834837c6dfp-5, 0x1.f6747830836edp-6, 0x1.d81592c57ab78p-4, 0x1.64p5
    },
    {
        -0x1.49d46c73748cbp-13, -0x1.23028d7d9ced6p-12, 0x1.385b9b8bab105p-8, 0x1.51734fd897894p-8,
        -0x1.d7d01a2925218p-5, -0x1.d077b68c6099cp-6, 0x1.da64adacecdf6p-4, 0x1.68p5
    },
    {
        -0x1.e028d1c377fbp-14, -0x1.6b97643751e1cp-11, 0x1.cdba7916ed2b8p-9, 0x1.be0d195a74122p-7,
        -0x1.61fbf9dc513b4p-5, -0x1.46ead5aba3c2p-4, 0x1.692b55c63e22ep-4, 0x1.6cp5
    },
    {
        -0x1.73fd7d73d69c5p-15, -0x1.eafc78007a719p-11, 0x1.7894e78829c3ap-10, 0x1.31f26943715bcp-6,
        -0x1.2ea83162269a3p-6, -0x1.c7d8e669d548fp-4, 0x1.4279f8a07235bp-5, 0x1.7p5
    },
    {
        0x1.0e586fc232796p-15, -0x1.00e97ee82a15fp-10, -0x1.b86feeb7ea6d4p-13, 0x1.3fc47dc44bc28p-6,
        0x1.4b853c6fdae8bp-10, -0x1.e018d9a5e69cp-4, -0x1.eab3b2bf5813dp-54, 0x1.72bac0f81081p5
    },
    {
        0x1.be5f7fe05611cp-14, -0x1.7f72adfb3fa12p-11, -0x1.99c4246fb3136p-9, 0x1.e9b7b5ca544c9p-7,
        0x1.2bc9fd269eab9p-5, -0x1.75d63c4ff723p-4, -0x1.23d5c56820152p-4, 0x1.78p5
    },
    {
        0x1.3b825d9c45defp-13, -0x1.625fa27c1555dp-12, -0x1.267c28327a5f1p-8, 0x1.d54151d2fc55ap-8,
        0x1.b66a5daf78045p-5, -0x1.7290e6fbea02fp-5, -0x1.b283c9bfbbdbcp-4, 0x1.7cp5
    },
    {
        0x1.4a3a2effc75edp-13, 0x1.17fc8ec3b4055p-13, -0x1.378d71688459bp-8, -0x1.2b7a162855c54p-9,
        0x1.d4e7c88fdc89cp-5, 0x1.733a2628700a5p-7, -0x1.d5df44ac45d29p-4, 0x1.8p5
    },
    {
        0x1.088f6689edb8fp-13, 0x1.29a061ebfa34ep-11, -0x1.f95f8265c3d2ap-9, -0x1.6af4361bb061dp-7,
        0x1.80f736aa07be3p-5, 0x1.086423fc670c6p-4, -0x1.866ac34ac6f15p-4, 0x1.84p5
    },
    {
        0x1.0e8b4040781d6p-14, 0x1.c29782225ac41p-11, -0x1.09f1de75630dbp-9, -0x1.17e551bb66c61p-6,
        0x1.a0630c3cb74a6p-6, 0x1.9fc4e3b93386dp-4, -0x1.b15b6922727bap-5, 0x1.88p5
    },
    {
        -0x1.8c786d82af304p-17, 0x1.ed1eb728adf53p-11, 0x1.906ae4f933fccp-13, -0x1.357bcb8babebfp-6,
        -0x1.2c7513548d7b3p-10, 0x1.d09b21007ea86p-4, -0x1.37950646672p-52, 0x1.8bdc6293f0657p5
    },
    {
        -0x1.6547e683388d4p-14, 0x1.9e33b1aa09c0fp-11, 0x1.45b83fe6bc1b8p-9, -0x1.0702b129d6f4p-6,
        -0x1.d930e086974f5p-6, 0x1.8f6890029bacfp-4, 0x1.c936ef41b2c5p-5, 0x1.9p5
    },
    {
        -0x1.1ec2fe24a2009p-13, 0x1.d7fa25c471d91p-12, 0x1.0acc31a5ec5e4p-8, -0x1.32857279a49ecp-7,
        -0x1.8bf579f74b695p-5, 0x1.dba6ad6018e98p-5, 0x1.873fdda52cc5bp-4, 0x1.94p5
    },
    {
        -0x1.441f370f2ab45p-13, 0x1.10d0393da4bb1p-18, 0x1.30d06dfeff291p-8, -0x1.d2c427859fdeap-12,
        -0x1.c95bfd73c098ap-5, 0x1.3ea5141c412aap-8, 0x1.c8f805e8ce34fp-4, 0x1.98p5
    },
    {
        -0x1.1a532879936a5p-13, -0x1.cbf59853a2b9bp-12, 0x1.0c4e4e782dfbep-8, 0x1.160e6e48c6046p-7,
        -0x1.96d002ef7b333p-5, -0x1.917043c5514eep-5, 0x1.9ab5c2fb73e61p-4, 0x1.9cp5
    },
    {
        -0x1.5892163ad5ff8p-14, -0x1.93ee1a16556acp-11, 0x1.4dbd75accbf2fp-9, 0x1.f433db39eabcp-7, -0x1.01b48719366ap-5,
        -0x1.725581e0864b3p-4, 0x1.08d3b5e90d97p-4, 0x1.ap5
    },
    {
        -0x1.f7cc629f2ab6ep-18, -0x1.e0e865c75fc92p-11, -0x1.6c803ab979dbbp-13, 0x1.2c221de8d153ap-6,
        0x1.11f5236666e88p-10, -0x1.c28612af201b9p-4, -0x1.bd526bce38ac7p-53, 0x1.a4fe0ee444c7bp5
    },
    {
        0x1.0a8ffd354cad1p-14, -0x1.b30f48f6a8494p-11, -0x1.e0e0d55e1f656p-10, 0x1.1311fa8026c14p-6,
        0x1.5958a148ba638p-6, -0x1.a0033206c21efp-4, -0x1.49a5cae04b457p-5, 0x1.a8p5
    },
    {
        0x1.fc3765c9056eep-14, -0x1.1eb41b75cbb4dp-11, -0x1.d73b86cc2f289p-9, 0x1.70557f6885d6fp-7,
        0x1.5c822da508a7bp-5, -0x1.1add3a3bfa672p-4, -0x1.5738a8f9d2b0fp-4, 0x1.acp5
    },
    {
        0x1.38053ecdf4346p-13, -0x1.17dd17c07713ap-13, -0x1.249a21821c9e5p-8, 0x1.8a2d822fef86fp-9,
        0x1.b5d61b1559525p-5, -0x1.482dc563bd7b9p-6, -0x1.b4512737a615fp-4, 0x1.bp5
    },
    {
        0x1.2582dee1fff4bp-13, 0x1.439f14d779d03p-12, -0x1.15d97d48b7babp-8, -0x1.8182d42346094p-8,
        0x1.a3b55a6021184p-5, 0x1.11d2fc72158ap-5, -0x1.a63876896d3c8p-4, 0x1.b4p5
    },
    {
        0x1.978b9924e638ap-14, 0x1.601c9df30f972p-11, -0x1.87344d19b1e1p-9, -0x1.b277df30253bp-7, 0x1.2b85b8fa2e43cp-5,
        0x1.40831caea2b4bp-4, -0x1.31598f9d8b365p-4, 0x1.b8p5
    },
    {
        0x1.051145f689714p-15, 0x1.c704954e7f85ep-11, -0x1.09eec87bfc6ddp-10, -0x1.1c1a851020edfp-6,
        0x1.addf6fc49a91cp-7, 0x1.a85ba01693c4dp-4, -0x1.cc7508007fdaap-6, 0x1.bcp5
    },
    {
        -0x1.37956036accd5p-15, 0x1.d9ac31d7966ebp-11, 0x1.4735ab412c089p-13, -0x1.23929f69ae02ap-6,
        -0x1.f6473987c62c6p-11, 0x1.b5a6219590b4ep-4, 0x1.14dbc2a692434p-52, 0x1.be1fc41a4c607p5
    },
    {
        -0x1.b49e39558d795p-14, 0x1.48febd8d696fep-11, 0x1.934354c54eae6p-9, -0x1.a3a9a8e8fcac3p-7,
        -0x1.29110b1b9006ep-5, 0x1.401b1e736e426p-4, 0x1.2366a6e4fe06ep-4, 0x1.c4p5
    },
    {
        -0x1.267921830f42ap-13, 0x1.09563d8d21e38p-12, 0x1.136b2be5cd055p-8, -0x1.5ffbf9b21d611p-8,
        -0x1.9b113e406971dp-5, 0x1.167f79ffcc778p-5, 0x1.989fd8238fd79p-4, 0x1.c8p5
    },
    {
        -0x1.2a524d798393bp-13, -0x1.78fc3600fca1ap-13, 0x1.198161e718d47p-8, 0x1.b1aab82b14b3ap-9,
        -0x1.a7edae805d846p-5, -0x1.27d99714d1d46p-6, 0x1.a936f9be23aaap-4, 0x1.ccp5
    },
    {
        -0x1.cb13df2197ae4p-14, -0x1.284427c4fe59bp-11, 0x1.b5fda7d51237bp-9, 0x1.6bf61334d2741p-7,
        -0x1.4d653ace81905p-5, -0x1.0b4d8c8e306eap-4, 0x1.52010cafc9a2dp-4, 0x1.dp5
    },
    {
        -0x1.a5e9c810b408ap-15, -0x1.a8708c42f51fcp-11, 0x1.9ec63178dc0bcp-10, 0x1.085506b1384dbp-6,
        -0x1.44d1896044304p-6, -0x1.89d68dd217c8p-4, 0x1.5248762a23877p-5, 0x1.d4p5
    },
    {
        0x1.39ef0d83c2effp-16, -0x1.c5ac2dcd31f48p-11, -0x1.34f59f82970d7p-13, 0x1.1bb7412a380bbp-6,
        0x1.cea2bb2684c4p-11, -0x1.a9d183604afdap-4, 0x1.c341b9f831174p-53, 0x1.d74180c9e41f6p5
    },
    {
        0x1.6843af598339fp-14, -0x1.6aa26a942e711p-11, -0x1.4b16e329a15bep-9, 0x1.cc3c6b4ebd26dp-7,
        0x1.e5501e95886dep-6, -0x1.5d5ad5fc43da1p-4, -0x1.d991e81347369p-5, 0x1.dcp5
    },
    {
        0x1.1012c1208280ep-13, -0x1.7afa470806f37p-12, -0x1.fb9df07a1d03bp-9, 0x1.ec0aefa1a5eabp-8,
        0x1.79d9811276aeap-5, -0x1.7dbbe4c0832bcp-5, -0x1.76ab237119261p-4, 0x1.ep5
    },
    {
        0x1.2906aa7b40dfdp-13, 0x1.c5e05ec5000f3p-15, -0x1.17865f7398d3cp-8, -0x1.a5ad7ada1814bp-11,
        0x1.a3d809498593ep-5, 0x1.9a90b4ee62754p-9, -0x1.a40e5370ccfb6p-4, 0x1.e4p5
    },
    {
        0x1.f2ee0c6b516b9p-14, 0x1.db1075de679e4p-12, -0x1.d9e468feef791p-9, -0x1.221262823876fp-7,
        0x1.672d62261e263p-5, 0x1.a77248110cb98p-5, -0x1.6aa5ed3d89ac8p-4, 0x1.e8p5
    },
    {
        0x1.1b1b9cac6e235p-14, 0x1.832772e54f614p-11, -0x1.11fecca8ccbc4p-9, -0x1.e0f6e6869209cp-7,
        0x1.a6f11c8935469p-6, 0x1.6561571cf1f58p-4, -0x1.b2905fe665e14p-5, 0x1.ecp5
    },
    {
        -0x1.fdb245c0eac86p-21, 0x1.b923e9d1e8319p-11, 0x1.1c6871822cf58p-13, -0x1.14746c6ed6faep-6,
        -0x1.abf214892c69dp-11, 0x1.9ee5ee8f68bc5p-4, -0x1.9e23f9c9ca91ep-52, 0x1.f06343d0971d4p5
    },
    {
        -0x1.18b19d50c8e52p-14, 0x1.83825bbe06e4fp-11, 0x1.001f2a6862c5ep-9, -0x1.e9eccd0685967p-7,
        -0x1.749f2bf761c0ap-6, 0x1.728540e0534c1p-4, 0x1.68c3de1f8b1efp-5, 0x1.f4p5
    },
    {
        -0x1.eae8475000dd1p-14, 0x1.df8e2d0e8759bp-12, 0x1.c8b590730553bp-9, -0x1.33d85e867e71ep-7,
        -0x1.530a50069f43cp-5, 0x1.d8a6b553456ccp-5, 0x1.4f4a01638354cp-4, 0x1.f8p5
    },
    {
        -0x1.21f6b8c1cf02bp-13, 0x1.16706071da965p-14, 0x1.10393fe7cb22bp-8, -0x1.a17908c3f93bcp-10,
        -0x1.97ec1cff3e961p-5, 0x1.6c965c5c5a952p-7, 0x1.9734625e5dafdp-4, 0x1.fcp5
    },
};

}  // namespace orvik::zym::bessel
