// Written by tools/approx from the rule in zym/kernels/bessel/tables.h; do not edit.
#include "zym/kernels/bessel/tables.h"

// clang-format off
namespace orvik::zym::bessel {

alignas(64) const double kJ0Rows64[128][16] = {
    {
        0x1.42fd7307ed4b3p-31, -0x1.249c3e7b0e8p-24, 0x1.931bb7693346bp-34, 0x1.c71c2a287bc1p-18, 0x1.f8136c9ff89a1p-40,
        -0x1.c71c71c9386ebp-12, 0x1.4c42d3116b228p-48, 0x1.fffffffffffccp-7, 0x1.92b1a09c07ec4p-61, -0x1p-2, 0.0, 0x1p0,
        0.0, 0.0, 0.0, 0.0
    },
    {
        0x1.7529e113491e9p-29, -0x1.0241c9d763ffap-24, -0x1.5e57d426cccf4p-22, 0x1.94e190c39dc7ep-18,
        0x1.b63d2a07c5d2ap-16, -0x1.964272f218b1ap-12, -0x1.4907335c6ee53p-10, 0x1.cba1b24e5ae83p-7,
        0x1.ee6a669de8507p-6, -0x1.d0d3c8b500d92p-3, -0x1.f02a71f4870d7p-3, 0x1.e07f1d54c3f34p-1, 0x1.df59bdcbb59c3p-57,
        0x1.a2893ccbca2dbp-55, 0x1p-1, 0.0
    },
    {
        0x1.4ab49cfdb4adcp-28, -0x1.4f3572738c3dbp-25, -0x1.36fd5fdf8be2dp-21, 0x1.097aac3f9d465p-18,
        0x1.85e7b15ef9d65p-15, -0x1.0e7c09d25dc99p-12, -0x1.25bf4e848fc5p-9, 0x1.39c35b951bc5ep-7, 0x1.bbef26175dc99p-5,
        -0x1.4cf35c9186573p-3, -0x1.c29c9ee970c6cp-2, 0x1.87c7fdbd7b8fp-1, -0x1.4d8b9e34019p-56, -0x1.f1872b3cf7533p-55,
        0x1p0, 0.0
    },
    {
        0x1.8faa688f09c61p-28, -0x1.3ce9ae7f2e5f6p-27, -0x1.790e099788c54p-21, 0x1.10cb0eba45d5bp-20,
        0x1.dae0f2294b9bfp-15, -0x1.36cfec73f49dep-14, -0x1.6832cecb70466p-9, 0x1.a680b1d2f1ed9p-9,
        0x1.13424c5d2de18p-4, -0x1.1e74299684869p-4, -0x1.1da9da9d6fc81p-1, 0x1.060e46ce9651bp-1,
        -0x1.551140ea92601p-57, -0x1.15b1024044b49p-56, 0x1.8p0, 0.0
    },
    {
        0x1.7a0160897018bp-28, 0x1.829fdf09022cp-26, -0x1.66d15c6981927p-21, -0x1.1d8e502acfd58p-19,
        0x1.c7cdf40e860d7p-15, 0x1.037d2bd04948bp-13, -0x1.5e2dc23b76d9bp-9, -0x1.e1bc6e745f902p-9,
        0x1.1146db833191fp-4, 0x1.081365fc429dp-5, -0x1.27487958371fp-1, 0x1.ca873fb24cef8p-3, 0x1.2847d70a0d7d5p-56,
        -0x1.b9494fd410e8ap-58, 0x1p1, 0.0
    },
    {
        0x1.1383078627091p-28, 0x1.80b62f2e8fb68p-25, -0x1.1ccd8255ebd3cp-21, -0x1.232c8c7230b98p-18,
        0x1.6ed3ba128880cp-15, 0x1.15382ba1c9658p-12, -0x1.1f992590d408ap-9, -0x1.1bb1cbe1a4171p-7,
        0x1.cfae864368d73p-5, 0x1.ba1deea029495p-4, -0x1.09cdb3655128p-1, 0.0, -0x1.8483706037fc7p-56,
        -0x1.19b7921f03c8ep-54, 0x1.33d152e971b4p1, 0.0
    },
    {
        0x1.9dfe3daa2b746p-30, 0x1.13f6f06579842p-24, -0x1.a6b8829a80874p-23, -0x1.a96b7784696c2p-18,
        0x1.273159760f00ep-16, 0x1.9ea7be818dc19p-12, -0x1.01d105d5d69cep-10, -0x1.ba7379276c483p-7,
        0x1.e367eaf0f26cep-6, 0x1.7e067bc94e12cp-3, -0x1.5b324589238dp-2, -0x1.0a4b0f4642392p-2, 0x1.b1998c85ed689p-56,
        0x1.44d7cca44e134p-57, 0x1.8p1, 0.0
    },
    {
        -0x1.585f0b7df5f37p-30, 0x1.16f792859ac29p-24, 0x1.1d57ef0d2baa2p-23, -0x1.b32acc0b34aap-18,
        -0x1.1edc7bd5e6b8p-17, 0x1.af6ea76fe2434p-12, 0x1.05f1986b5d814p-12, -0x1.d8d4c2443c20bp-7,
        0x1.15069b76d7714p-10, 0x1.ad718c2d4e8a4p-3, -0x1.19596399cff47p-3, -0x1.854034ce30d51p-2,
        0x1.61b96bc006431p-57, 0x1.c9a779e07e3e3p-56, 0x1.cp1, 0.0
    },
    {
        -0x1.fceb60b835661p-29, 0x1.b67a13ae609b7p-25, 0x1.cc719e121ac18p-22, -0x1.5c985973a1a8ap-18,
        -0x1.0f64e4e9bb14p-15, 0x1.62cae0c41d7b9p-12, 0x1.6dccf7863ac53p-10, -0x1.93f0826747b19p-7,
        -0x1.aceba36516c3bp-6, 0x1.85c63965ee64ep-3, 0x1.0e8372dfaeab5p-4, -0x1.96ae7093e94f9p-2, 0x1.ad96f1a8cbc5fp-59,
        -0x1.cd1657dfde87ep-56, 0x1p2, 0.0
    },
    {
        -0x1.6b78e072d817cp-28, 0x1.bba49653965ep-26, 0x1.4f769654b8e94p-21, -0x1.749ce371bcaa6p-19,
        -0x1.97986ab05dc99p-15, 0x1.969645d05150bp-13, 0x1.21690d2703329p-9, -0x1.fabe5e99bc457p-8,
        -0x1.7d924e27ef44p-5, 0x1.13a80cbaeecf8p-3, 0x1.d93636341586fp-3, -0x1.483c4ba446893p-2, -0x1.e0418b33e0be2p-58,
        0x1.31ad0b8d7568fp-57, 0x1.2p2, 0.0
    },
    {
        -0x1.84e10519befd2p-28, -0x1.4f3aa8c9dbe46p-28, 0x1.6c0ebb00551bdp-21, 0x1.ca1f38458f734p-23,
        -0x1.c343e7322420dp-15, 0x1.77e24aa037039p-17, 0x1.4a5447fb7b011p-9, -0x1.bf94d78f6ec6ep-10,
        -0x1.cbf85845f4ac5p-5, 0x1.cb156341bdc2fp-5, 0x1.4f70e7cb3a99dp-2, -0x1.6bb7db255cb89p-3,
        -0x1.33167815867fbp-57, -0x1.c7707ad643e7fp-57, 0x1.4p2, 0.0
    },
    {
        -0x1.4513b5ffcb70ap-28, -0x1.2d5505e649ed9p-25, 0x1.32e7aa2c4b35cp-21, 0x1.ad77c7da6a48ep-19,
        -0x1.863f483bf06acp-15, -0x1.6f641f40506c4p-13, 0x1.27e31fe9ab717p-9, 0x1.2f7ffe9025585p-8,
        -0x1.b2150cb41e8c3p-5, -0x1.f8f72e7a848dcp-6, 0x1.5c6e60a097823p-2, 0.0, -0x1.ee4aa18eb042fp-58,
        -0x1.fbb40985f6e34p-56, 0x1.6148f5b2c2e45p2, 0.0
    },
    {
        -0x1.7b209edbc5ee4p-29, -0x1.d8e33bdd1b1adp-25, 0x1.78f31b98685fep-22, 0x1.5eca45be5493dp-18,
        -0x1.f7f41b77f18dbp-16, -0x1.40d55deb4d886p-12, 0x1.96ad62dbc1deap-10, 0x1.2ff8250ad6d58p-7,
        -0x1.427fa0b72ec06p-5, -0x1.92f6814c2d227p-4, 0x1.1b530367f4bbfp-2, 0x1.3485802986392p-3,
        -0x1.88dd5cca8886ep-56, 0x1.586ab5558ddfp-57, 0x1.8p2, 0.0
    },
    {
        -0x1.87adbf706fd7cp-33, -0x1.0fbc9a5d7c214p-24, 0x1.a4d1ed6e145c1p-25, 0x1.9c3c06ce4956ap-18,
        -0x1.cb3c91e8947ffp-18, -0x1.85a26efdafa3dp-12, 0x1.0dd235694a00ep-11, 0x1.85f0ca1f70bc2p-7,
        -0x1.22efe06eea18cp-6, -0x1.2292a2e4ca348p-3, 0x1.3b1125f2a3a6bp-3, 0x1.0a563d835b27bp-2,
        -0x1.8d59b29f8d25bp-57, -0x1.f2650c998b2e2p-56, 0x1.ap2, 0.0
    },
    {
        0x1.4a48168748c21p-29, -0x1.e9b552d4537b5p-25, -0x1.1500c1deb3887p-22, 0x1.7be2d2098554bp-18,
        0x1.2101a5ed95181p-16, -0x1.71fd3587a6cacp-12, -0x1.36fb1b8e86cb3p-11, 0x1.8256c6008f067p-7,
        0x1.a32d40bb7272cp-8, -0x1.33f759179e667p-3, 0x1.32e4bdb5a968p-8, 0x1.3347faf45b2a3p-2, 0x1.3957078df5917p-63,
        0x1.9c6d7d9a86236p-56, 0x1.cp2, 0.0
    },
    {
        0x1.2e013792fb242p-28, -0x1.45ce973a74befp-25, -0x1.0c863a8a3ea28p-21, 0x1.06ff1bf6200cfp-18,
        0x1.34486d570be41p-15, -0x1.0ccd71b44eb47p-12, -0x1.8f884bd4075a7p-10, 0x1.29a1c87794c36p-7,
        0x1.c5288a7bc4534p-6, -0x1.fc8822de4866fp-4, -0x1.14fd20aa5273ap-3, 0x1.10bb57e0e56e6p-2, 0x1.735fa309e5d4cp-58,
        0x1.2c14742d3c759p-57, 0x1.ep2, 0.0
    },
    {
        0x1.6f9a62ce2525ep-28, -0x1.6bf122d60d585p-27, -0x1.4ee4b6a4adadp-21, 0x1.674fc5a0c10d3p-20,
        0x1.8e0cd58a415ap-15, -0x1.bc7dc2a655d51p-14, -0x1.103bd7f3a6668p-9, 0x1.26146cbf6447cp-8, 0x1.53a407eba4852p-5,
        -0x1.237954abb63f5p-4, -0x1.e089056186183p-3, 0x1.5f8a7557e7025p-3, 0x1.5b0e789e4b68bp-58,
        0x1.61f7b4847a082p-58, 0x1p3, 0.0
    },
    {
        0x1.58aaccf923e5dp-28, 0x1.d18849ad7d523p-26, -0x1.30e3360e5fadcp-21, -0x1.33246469248f9p-19,
        0x1.7800bc1e86525p-15, 0x1.d7960521b2c3bp-14, -0x1.0e0d60385ac7cp-9, -0x1.48e63600d80afp-9,
        0x1.68b984ec6493cp-5, 0x1.00f7fcf183e18p-6, -0x1.15f7977a772d4p-2, 0.0, 0x1.b4f41c2e4b5ebp-56,
        -0x1.6e8eeb22e5818p-54, 0x1.14eb56cccdecap3, 0.0
    },
    {
        0x1.f2099a9e506fp-29, 0x1.71172e39dbe1ap-25, -0x1.de73059d74d69p-22, -0x1.04874b9e538b9p-18,
        0x1.2f91410265405p-15, 0x1.bb91801e09af6p-13, -0x1.c2efa723f3055p-10, -0x1.7ce16c1010218p-8,
        0x1.38f55f0436316p-5, 0x1.e1a68d246ffc1p-5, -0x1.f66606a53f013p-3, -0x1.7201a81c29184p-4, 0x1.1c96acd9ba87ap-57,
        0x1.583473beb20f5p-58, 0x1.2p3, 0.0
    },
    {
        0x1.7b0fd8f68d0ep-30, 0x1.e97586b650278p-25, -0x1.989681d2d9407p-23, -0x1.664f90372bd03p-18,
        0x1.23436b47eb94bp-16, 0x1.41d5df4603dddp-12, -0x1.e57c30e5b4a06p-11, -0x1.2cc9e842c904p-7,
        0x1.76dbaf26ba424p-6, 0x1.afee691e8ffe3p-4, -0x1.4a450180e4a75p-3, -0x1.8d2a83e892df2p-3, 0x1.18d115dc0a8b1p-57,
        -0x1.f711e864c5dd7p-60, 0x1.3p3, 0.0
    },
    {
        -0x1.393f84aed60e1p-30, 0x1.ef07f20e3cc5cp-25, 0x1.b7bab73d0db8fp-24, -0x1.73a96512b2cdap-18,
        -0x1.4477dc812325p-18, 0x1.591059416afc7p-12, 0x1.8e981ad68bc33p-15, -0x1.5139c0beadd48p-7,
        0x1.896da006a34c9p-9, 0x1.004a326e2a8ep-3, -0x1.6420f4e200911p-5, -0x1.f7ad2b89e1e54p-3, 0x1.ea870f570b0d4p-60,
        0x1.f3779f651fbafp-57, 0x1.4p3, 0.0
    },
    {
        -0x1.cbf021e98e366p-29, 0x1.82c1055873f71p-25, 0x1.873fd9e1e2283p-22, -0x1.2b96930aeefccp-18,
        -0x1.a75c770f00d9cp-16, 0x1.20911f8ba3771p-12, 0x1.fd8799f834d0ep-11, -0x1.265d1bfbbe9ep-7,
        -0x1.10f364a8ae891p-6, 0x1.d546a79710c05p-4, 0x1.42f83b8654106p-4, -0x1.e4a7cefefc5fap-3, 0x1.7ad4b3c97136fp-58,
        0x1.d5bfe3d0d4074p-57, 0x1.5p3, 0.0
    },
    {
        -0x1.458e8d92e4d23p-28, 0x1.7fab3aa441464p-26, 0x1.1fd80bb0c2fedp-21, -0x1.417c1598dcad1p-19,
        -0x1.48eec9151df5cp-15, 0x1.4f8849d98d387p-13, 0x1.ad1b954f5d0dcp-10, -0x1.72474fe502d6bp-8,
        -0x1.02a12dfeca378p-5, 0x1.3daefb9d8b0cbp-4, 0x1.6a0e692b762c6p-3, -0x1.5e99052d216ddp-3,
        -0x1.fda1d9611bd79p-57, 0x1.a8ebb61df3487p-57, 0x1.6p3, 0.0
    },
    {
        -0x1.57faac10d26b5p-28, -0x1.57dea5a2f261bp-28, 0x1.377384c95474bp-21, 0x1.6889d4172788ap-23,
        -0x1.6edb439082bdcp-15, 0x1.8d401c137d285p-17, 0x1.f1b721ee9ed6p-10, -0x1.2a368a4267582p-10,
        -0x1.3b212f2f739dap-5, 0x1.87893fbf9e68ep-6, 0x1.d3b82b96e7bd5p-3, -0x1.151c4e695bae6p-4, 0x1.0aa54894e7ca9p-57,
        -0x1.3bd489af71452p-58, 0x1.7p3, 0.0
    },
    {
        -0x1.20f5d5e75aecdp-28, -0x1.67aa56a5388c2p-26, 0x1.235f3f00542dp-21, 0x1.bb14558cf164fp-20,
        -0x1.5ce7f0e2827a5p-15, -0x1.3dfc37a137a08p-14, 0x1.e2e16f97d0271p-10, 0x1.a55e9b347009ep-10,
        -0x1.38d1dd8992e07p-5, -0x1.42ff0cdc58451p-7, 0x1.dc13e66ac2e77p-3, 0.0, 0x1.5de5927df76e2p-61,
        -0x1.2d8ed368e0843p-54, 0x1.79544008272b6p3, 0.0
    },
    {
        -0x1.39237b64383aep-29, -0x1.a05edff8723a2p-25, 0x1.34201c8a77d3bp-22, 0x1.275de679a026fp-18,
        -0x1.8d0d75617c111p-16, -0x1.fff76061ec11dp-13, 0x1.284bed36d15d1p-10, 0x1.d04da0dfe98a9p-8,
        -0x1.9e027cfb68924p-6, -0x1.47ee70ec64d16p-4, 0x1.52e92c46b451fp-3, 0x1.2cd18c19effep-3, -0x1.4c6e4f25cdce8p-57,
        0x1.c7cef90a1ceaep-58, 0x1.9p3, 0.0
    },
    {
        0x1.836a9d0de368cp-35, -0x1.d606f4835766p-25, 0x1.91088fba9ac19p-26, 0x1.5702cdc7e3e2fp-18,
        -0x1.1ccf1fa666d77p-18, -0x1.3411e6a9c119bp-12, 0x1.4136bc0663c91p-12, 0x1.24041f4de766ep-7,
        -0x1.248e2e9497895p-7, -0x1.b2dcc9e0d60ecp-4, 0x1.2005d262e7443p-4, 0x1.a7c8df532f9fep-3, 0x1.df69ee717f533p-64,
        -0x1.9816abace6c3bp-57, 0x1.ap3, 0.0
    },
    {
        0x1.3d37f3a9e8383p-29, -0x1.9d252c44b1afap-25, -0x1.00d5e34d644a5p-22, 0x1.35947667d07ffp-18,
        0x1.05ba0995c201bp-16, -0x1.1e9e6bd470282p-12, -0x1.268cae048efp-11, 0x1.19216685df731p-7, 0x1.247dec9f05e6dp-7,
        -0x1.b2868d467b623p-4, -0x1.37b32624a6865p-5, 0x1.b84c3d639ae97p-3, -0x1.fd70d361695b4p-59,
        -0x1.6187f91dc634fp-59, 0x1.bp3, 0.0
    },
    {
        0x1.11fc441fa3be2p-28, -0x1.05459006c3136p-25, -0x1.d7f8debb2189ap-22, 0x1.99b591f37c0cep-19,
        0x1.0600c17c2eba1p-15, -0x1.8d86324781f01p-13, -0x1.4ce46f999ef99p-10, 0x1.98c3065619f4bp-8,
        0x1.89daad31dee74p-6, -0x1.4ad8fc448e80dp-4, -0x1.1126fe3c3df7cp-3, 0x1.5e5bc548dc129p-3,
        -0x1.b50acebc65247p-57, -0x1.e05ff3e61e55bp-57, 0x1.cp3, 0.0
    },
    {
        0x1.42fd0d9ea654ap-28, -0x1.9e885afdc4ef2p-28, -0x1.1dd6165e8468ep-21, 0x1.b80ffac4d1647p-21,
        0x1.48241ecfdc404p-15, -0x1.0bb372d302122p-14, -0x1.b2570834ac2fcp-10, 0x1.47a927724b05fp-9,
        0x1.0dd3a8b82612dp-5, -0x1.2ff17b831a39ep-5, -0x1.8c24bf21d2ap-3, 0x1.669572909861ap-4, -0x1.58d35daae28f2p-59,
        -0x1.88542e3bcb66ep-59, 0x1.dp3, 0.0
    },
    {
        0x1.28e5e7354baabp-28, 0x1.11c2a3f78ebd8p-26, -0x1.1222f072b10c9p-21, -0x1.4b231fac5d2b7p-20,
        0x1.41f3b05074b13p-15, 0x1.cc0bda1e2eb18p-15, -0x1.b541f829be2cbp-10, -0x1.2a2151407e142p-10,
        0x1.17798aa09f11ep-5, 0x1.c54b930fef8e5p-8, -0x1.a701d0f9675p-3, 0.0, 0x1.8cdcc939c8415p-57,
        -0x1.50be2ef09843ep-53, 0x1.ddca13ef271d2p3, 0.0
    },
    {
        0x1.8e7d14358db9ap-29, 0x1.527bef1db89f7p-25, -0x1.76371d8befbd5p-22, -0x1.d49373b0a575cp-19,
        0x1.ca26256dbae34p-16, 0x1.8c95da6d93c18p-13, -0x1.44c56b873b489p-10, -0x1.60ba9641e1734p-8,
        0x1.b18f1ab9342e6p-6, 0x1.eb989f167d556p-5, -0x1.5673dd289136p-3, -0x1.bf68a3956256bp-4, 0x1.6dc1894ee642fp-58,
        0x1.f2311454da575p-59, 0x1.fp3, 0.0
    },
    {
        0x1.d249f98a6f966p-31, 0x1.aca775d633013p-25, -0x1.0242db2c90597p-23, -0x1.3265e92565336p-18,
        0x1.6c1357ab65bc9p-17, 0x1.0da1e943ec52ap-12, -0x1.230457f3ced1bp-11, -0x1.f67d00058a305p-8,
        0x1.ae221e8bcf438p-7, 0x1.71c39ecf70e5fp-4, -0x1.72444f11db6adp-4, -0x1.66317c56e20aap-3, 0x1.27d5552dec8acp-59,
        0x1.564f496038dc6p-57, 0x1p4, 0.0
    },
    {
        -0x1.75f5c1b9f794cp-30, 0x1.a01f65fd93517p-25, 0x1.1940dba887ac9p-23, -0x1.3098a3ee1d047p-18,
        -0x1.039d88ce2e92cp-17, 0x1.134fc596c40adp-12, 0x1.f902f5723e562p-13, -0x1.083a24bc295cbp-7,
        -0x1.80ff091974cp-9, 0x1.9178e1f6d0cf7p-4, 0x1.79c3757b500bp-8, -0x1.92300a6dd64b9p-3, 0x1.22a1c61362cf1p-62,
        -0x1.19eeeee8f361fp-60, 0x1.08p4, 0.0
    },
    {
        -0x1.b8651de3c6292p-29, 0x1.31ed257283c92p-25, 0x1.73143a66e4856p-22, -0x1.ce07677658e2bp-19,
        -0x1.93092d80cb321p-16, 0x1.af5e81976aebep-13, 0x1.f60035cb5e695p-11, -0x1.abf32b301444bp-8,
        -0x1.24233ed88f21dp-6, 0x1.5018676441b84p-4, 0x1.900cd663e892fp-4, -0x1.5bdc8bd09b624p-3,
        -0x1.c61c4af63d98ap-59, 0x1.47a0baaa74337p-60, 0x1.1p4, 0.0
    },
    {
        -0x1.247c8d1b1c8f5p-28, 0x1.f7ebd9cfce304p-27, 0x1.fccb75baac84ep-22, -0x1.a287620d06967p-20,
        -0x1.1f0cb2e21737bp-15, 0x1.a9fcd6710e99bp-14, 0x1.762a859a7b666p-10, -0x1.c89aabe3886acp-9,
        -0x1.cb6b9c881165bp-6, 0x1.801730407a8aap-5, 0x1.4eaf21019353dp-3, -0x1.a65716c450dd6p-4, 0x1.2cd11f8bbcb1bp-58,
        0x1.4e1785421724p-60, 0x1.18p4, 0.0
    },
    {
        -0x1.25802f498ec1dp-28, -0x1.b2552dde90e51p-27, 0x1.01720546252bap-21, 0x1.01297cfe908ecp-20,
        -0x1.2aa93a0a7465ap-15, -0x1.5f01524a1b018p-15, 0x1.9166c7d3eb787p-10, 0x1.c1b47c809cb2cp-11,
        -0x1.fd7c3ad6f59dfp-6, -0x1.5467eb535df12p-8, 0x1.8077f56c9b782p-3, 0.0, -0x1.08e9e7885327cp-57,
        0x1.a2122af76659ep-53, 0x1.212313f8a19f6p4, 0.0
    },
    {
        -0x1.c54f7d2efc405p-29, -0x1.069c0dfbb4c08p-25, 0x1.9da88df16354bp-22, 0x1.63f48aef420b9p-19,
        -0x1.eba71d5b8d231p-16, -0x1.272ac94786ebp-13, 0x1.52bdeeb3e91fbp-10, 0x1.019fea9049a89p-8,
        -0x1.b8f8dd1165344p-6, -0x1.60f5f03fe341dp-5, 0x1.554404920d38dp-3, 0x1.3c112e0695b83p-4,
        -0x1.b72366d899899p-57, 0x1.692c1703fe969p-58, 0x1.28p4, 0.0
    },
    {
        -0x1.aac900107f46fp-30, -0x1.7b6d6aaf4d397p-25, 0x1.a0ee2dc99568cp-23, 0x1.0b2ef37c4de5p-18,
        -0x1.083e1c7583a78p-16, -0x1.cfc8bb8626f3ep-13, 0x1.82a1e690e573bp-11, 0x1.ab32ec1912d8cp-8,
        -0x1.09f67a7cf9a31p-6, -0x1.37b0cac59a7b6p-4, 0x1.b0f3fbde5a4a8p-4, 0x1.2c4c0e3fc086ep-3, 0x1.f460b36770723p-59,
        0x1.527f434040557p-57, 0x1.3p4, 0.0
    },
    {
        0x1.219a2fb034d13p-31, -0x1.93ffd5cbd169p-25, -0x1.4e440136f0897p-25, 0x1.22fbf9f236bf3p-18,
        0x1.4bb135c92c6c3p-20, -0x1.02f61b4bfc1d4p-12, 0x1.555f20117eb36p-16, 0x1.ea567f8a5861dp-8,
        -0x1.fa9aebdadc136p-10, -0x1.707c3a5b53de3p-4, 0x1.560cc7616e9edp-6, 0x1.6e4aea4f3742ep-3,
        0x1.f51d2815b5b19p-61, 0x1.0884d8d5761a6p-57, 0x1.38p4, 0.0
    },
    {
        0x1.4f939ad9e515p-29, -0x1.4c47cacc6f344p-25, -0x1.14de49e311f51p-22, 0x1.ea3c0c770a27ep-19,
        0x1.2650534b90b98p-16, -0x1.bf53a69680191p-13, -0x1.66cfd0cc7c64dp-11, 0x1.b28e1417d80bap-8,
        0x1.98c827258c519p-7, -0x1.4f390976b20f2p-4, -0x1.11bf9c29ff1c6p-4, 0x1.561106f7bed64p-3, 0x1.6aded9fcd7f8bp-58,
        -0x1.1159d33366014p-57, 0x1.4p4, 0.0
    },
    {
        0x1.0117433454512p-28, -0x1.6e35f71ec3029p-26, -0x1.b95155d5f4ab2p-22, 0x1.1bd9c739ce28ep-19,
        0x1.ebb45f5398bfbp-16, -0x1.0f9b639c94aacp-13, -0x1.3cea4f078e656p-10, 0x1.1402007782113p-8,
        0x1.81a071b65af85p-6, -0x1.bc3679eb57bc8p-5, -0x1.170cb2adbd0e1p-3, 0x1.d76fe90289667p-4,
        -0x1.205cff541f118p-57, 0x1.61dd535d4481p-59, 0x1.48p4, 0.0
    },
    {
        0x1.1ae3ce4825d32p-28, 0x1.63fff6d883657p-27, -0x1.e4ce6a9aa7de8p-22, -0x1.9c8cfe142acccp-21,
        0x1.170ab6a5e99p-15, 0x1.1695766b8a801p-15, -0x1.74a948d055568p-10, -0x1.62813c7f58d16p-11,
        0x1.d7073daebb02bp-6, 0x1.0ba9ce88929cp-8, -0x1.62d93aa9d05bbp-3, 0.0, -0x1.d9634c2e04c7fp-57,
        0x1.8b4b912da2218p-54, 0x1.5362dd173f792p4, 0.0
    },
    {
        0x1.e4bc3ff2b0d7cp-29, 0x1.7e68382e2910bp-26, -0x1.b20f31fe90a56p-22, -0x1.fa6476b3a5f86p-20,
        0x1.fa4f656b2037dp-16, 0x1.99ae013475b58p-14, -0x1.56be5c789430dp-10, -0x1.5c417ccf67fc2p-9,
        0x1.b74606daa8a35p-6, 0x1.cf5d5b6a36275p-6, -0x1.4f91ae3f5377ep-3, -0x1.90eee7a5df2ecp-5, 0x1.67a26429c3be3p-58,
        -0x1.81ef745928cbbp-59, 0x1.58p4, 0.0
    },
    {
        0x1.204df9b03df8ep-29, 0x1.46b91035c22ebp-25, -0x1.0c79f60c7817dp-22, -0x1.c6c65a6f4b006p-19,
        0x1.456b77a5e9f4p-16, 0x1.86784f69767d1p-13, -0x1.c9474807bc38fp-11, -0x1.64533720ce05p-8, 0x1.2fad05f8a82dap-6,
        0x1.02009de3c8518p-4, -0x1.dff5d1656814ep-4, -0x1.ee303de5dd5c5p-4, -0x1.301cfb530696p-59, 0x1.d69aa278f483p-58,
        0x1.6p4, 0.0
    },
    {
        0x1.ac574baf1e629p-33, 0x1.7ddd1be5e330ep-25, -0x1.509bccf799f35p-25, -0x1.0fdecd61c1febp-18,
        0x1.19d97ccac57aap-18, 0x1.deb2675992cf7p-13, -0x1.f15c5af2d3e3p-13, -0x1.c0eeb9beb99cdp-8,
        0x1.88084618a5975p-8, 0x1.4ec5431b7d1f2p-4, -0x1.623d1dcbbba43p-5, -0x1.4ad5a654f559p-3, 0x1.30c98fff6f03dp-59,
        -0x1.10f97f08f180bp-57, 0x1.68p4, 0.0
    },
    {
        -0x1.d8fc8a87b1454p-30, 0x1.58ee765008c84p-25, 0x1.7c1811e14d70dp-23, -0x1.f508fc040e3b8p-19,
        -0x1.886382947fa82p-17, 0x1.c2691a45fee0fp-13, 0x1.cecaf7fca705p-12, -0x1.afa642ab9ea67p-8,
        -0x1.fb276cbf53013p-8, 0x1.491a3964a9d6cp-4, 0x1.43be06619e79ap-5, -0x1.4c9f12818cf3fp-3, 0x1.055a28e84d378p-61,
        0x1.be222f4bda228p-58, 0x1.7p4, 0.0
    },
    {
        -0x1.b6befa4cb01c9p-29, 0x1.c4b69f4be8603p-26, 0x1.746a49eaa867ap-22, -0x1.5359816b4aabcp-19,
        -0x1.9a94ff219426bp-16, 0x1.3ab7d3acb1541p-13, 0x1.061a484831a37p-10, -0x1.36ecc321199f8p-8,
        -0x1.3c4292726793bp-6, 0x1.e845b95e1adc2p-5, 0x1.c66f7697126efp-4, -0x1.fb9c2b59a3d08p-4,
        -0x1.6cf44e81e3da3p-58, -0x1.63b0634a4085cp-58, 0x1.78p4, 0.0
    },
    {
        -0x1.0a65ed95835a3p-28, 0x1.becb733085004p-28, 0x1.ce63df27c06ebp-22, -0x1.8e2781855fc0ep-21,
        -0x1.0535deed09c93p-15, 0x1.a8ef671605ef2p-15, 0x1.5690e457268d1p-10, -0x1.d781cde60dd14p-10,
        -0x1.a99058e77560fp-6, 0x1.980f61628933bp-6, 0x1.3b784f2267ac7p-3, -0x1.cca36e92efd07p-5, 0x1.f9ace99964bebp-58,
        -0x1.d77613f0cf3b7p-61, 0x1.8p4, 0.0
    },
    {
        -0x1.f6a2cfaa0e898p-29, -0x1.2821d776c878ep-27, 0x1.ca7afa20a12e2p-22, 0x1.53ac1b44f5258p-21,
        -0x1.0679c957b6f2ap-15, -0x1.c79db4a665364p-16, 0x1.5d18d69de7a3ap-10, 0x1.20a3f8c1298c6p-11,
        -0x1.b8105d59b114cp-6, -0x1.b3297fdae7857p-9, 0x1.4b2a2ebf61ecep-3, 0.0, -0x1.053acdc29f2c7p-57,
        -0x1.55e059345b43p-53, 0x1.85a3b930156ddp4, 0.0
    },
    {
        -0x1.58cb1dcd0e889p-29, -0x1.10ca97fe91b0cp-25, 0x1.38e76cef8fbcfp-22, 0x1.77c27626200f9p-19,
        -0x1.72095ef63b2c2p-16, -0x1.3f72fae010df5p-13, 0x1.fc3d1ed109e0ep-11, 0x1.20dcc971f42f5p-8,
        -0x1.4aadf519071aap-6, -0x1.9ed89bec2d58fp-5, 0x1.00b7a1b3f1382p-3, 0x1.8a4f09ddc8214p-4, 0x1.30d38e6726f0ep-57,
        0x1.2a3dd87609277p-58, 0x1.9p4, 0.0
    },
    {
        -0x1.bebf04c7027dep-31, -0x1.60c56ed2008edp-25, 0x1.c3f41b9e45b75p-24, 0x1.f1e584a542d7fp-19,
        -0x1.25d598899b04ap-17, -0x1.b2c490e60829dp-13, 0x1.b68fb601ba62cp-12, 0x1.94cc65872f293p-8,
        -0x1.32f8c0968d41ap-7, -0x1.2c05cc3ebe68dp-4, 0x1.fc4d365fdbd8ep-5, 0x1.270a0f7a0a0eep-3,
        -0x1.c21ecf4065b24p-59, -0x1.0411a0cb61eabp-57, 0x1.98p4, 0.0
    },
    {
        0x1.209eb79d857f4p-30, -0x1.5aec83b427754p-25, -0x1.ba1cbec077d93p-24, 0x1.f26a56d612517p-19,
        0x1.adaf6487df9d2p-18, -0x1.bb6a98636d2a5p-13, -0x1.d4164e80d88f2p-13, 0x1.a4f20104360c2p-8,
        0x1.cac72b1f2e562p-9, -0x1.3e4d2c52afc71p-4, -0x1.ed04bc6859776p-7, 0x1.3f7c91b2effe2p-3, 0x1.6f5c056b5ab09p-63,
        -0x1.29dccea5e71c3p-58, 0x1.ap4, 0.0
    },
    {
        0x1.69997c85cd19cp-29, -0x1.020d6ba790c27p-25, -0x1.2fb5a45adb887p-22, 0x1.7b4af87681ae1p-19,
        0x1.4b6500b293ee5p-16, -0x1.593e8e284dda4p-13, -0x1.a2eb324b8597ep-11, 0x1.4f47567cbf09cp-8,
        0x1.f4b3528fe3981p-7, -0x1.03437bb8aba3p-4, -0x1.64774533725d5p-4, 0x1.09fd47e51ce39p-3, -0x1.91a955f8b062bp-58,
        0x1.9128184aeb6e9p-59, 0x1.a8p4, 0.0
    },
    {
        0x1.e8c8590943298p-29, -0x1.b31fbab739427p-27, -0x1.a4c2890587579p-22, 0x1.56472f59ee5adp-20,
        0x1.d7c1b7eb6f118p-16, -0x1.4b7d2d706a048p-14, -0x1.333242ee63206p-10, 0x1.549b213d622e7p-9,
        0x1.7b4d0a2e9b9a3p-6, -0x1.153b013bcd7bap-5, -0x1.17b9bb6785728p-3, 0x1.29f36dee23384p-4, 0x1.76c18f40e1e51p-58,
        0x1.6bc3f8f5a4a85p-59, 0x1.bp4, 0.0
    },
    {
        0x1.f0ea02031274cp-29, 0x1.ef723c57750d5p-28, -0x1.b35ebfeffc7aap-22, -0x1.1d9e23406207dp-21,
        0x1.f0b30f3dbf63dp-16, 0x1.7d55404fea4ccp-16, -0x1.496158dc5f19fp-10, -0x1.e1c0589e32437p-12,
        0x1.9e74e754ea71fp-6, 0x1.6ac0d2e2f2e6cp-9, -0x1.37aac8c1aeabbp-3, 0.0, -0x1.00cc0bd333e44p-58,
        0x1.1c17abe35eaaep-52, 0x1.b7e54a5fd5f11p4, 0.0
    },
    {
        0x1.818b837dd527p-29, 0x1.b5dc32e47c1fbp-26, -0x1.58470f5159e0bp-22, -0x1.2a4926bbd6da3p-19,
        0x1.90ded6c8766a1p-16, 0x1.f5aa764069e49p-14, -0x1.0f54b720a2664p-10, -0x1.c0bd169cda435p-9,
        0x1.5c72d93be2dacp-6, 0x1.3ebfba118cf62p-5, -0x1.0b5e9426bf301p-3, -0x1.2ba6af7c7f4e2p-4, 0x1.f779d87a51f7ep-57,
        0x1.34724ab81130cp-58, 0x1.cp4, 0.0
    },
    {
        0x1.6f0052d50b54fp-30, 0x1.3eb05b259de6dp-25, -0x1.58de4ce1c20e9p-23, -0x1.be8c620554aedp-19,
        0x1.a53bf9d31ffd4p-17, 0x1.834f2d02163cp-13, -0x1.2a2255030a315p-11, -0x1.666b7b5baf88cp-8,
        0x1.8f1b854e2a179p-7, 0x1.083a5306c3348p-4, -0x1.3e43c770e021p-4, -0x1.02a4ecb86e6e4p-3, 0x1.d3bc073d5d62dp-61,
        -0x1.d1e2c4ed690bbp-57, 0x1.c8p4, 0.0
    },
    {
        -0x1.dc264c0d0f242p-32, 0x1.5455fa6c8dfdbp-25, 0x1.310301efd9ba3p-25, -0x1.e4f58ba8b68f8p-19,
        -0x1.b372888e0b77cp-20, 0x1.ac2183ec8b702p-13, 0x1.c5f6930d33d93p-16, -0x1.93963438b9cecp-8,
        0x1.3dfa32bbd0d47p-12, 0x1.2f48b226d4a19p-4, -0x1.c670a5ce4a1c8p-8, -0x1.2ecb55488a119p-3,
        0x1.5029eea4b4df9p-62, 0x1.94e7cc4b136fap-60, 0x1.dp4, 0.0
    },
    {
        -0x1.1c97235634fa7p-29, 0x1.17dafb0fa28bdp-25, 0x1.d86bcd0b5fcfp-23, -0x1.960514cd4d16ap-19,
        -0x1.fd3e74a9bbce2p-17, 0x1.6d08917337dd8p-13, 0x1.3ddddebfe0e8cp-11, -0x1.5e7725b2aea35p-8,
        -0x1.7707bb63ac465p-7, 0x1.0c38f9f5c9197p-4, 0x1.0764070ecf766p-4, -0x1.10afd307647aep-3, -0x1.a9745ec1081cp-59,
        -0x1.9aebcbf3e70dfp-57, 0x1.d8p4, 0.0
    },
    {
        -0x1.b5f09c50a1a7ap-29, 0x1.3202134e77a8dp-26, 0x1.76642073e4758p-22, -0x1.cd1a65b7dbb72p-20,
        -0x1.a1043997c19aap-16, 0x1.adcceecb5a90bp-14, 0x1.0de66a33962c4p-10, -0x1.ab052eb3ca96ap-9,
        -0x1.4b690e5739f9ap-6, 0x1.518cbe88efef6p-5, 0x1.e66783a4dbb98p-4, -0x1.61c3650e6eb9dp-4,
        -0x1.6169264360892p-60, 0x1.60eb77d4f87dep-69, 0x1.ep4, 0.0
    },
    {
        -0x1.e2fec84eefb3ap-29, -0x1.ab9edbf456761p-28, 0x1.9f1afb58dd1edp-22, 0x1.e8a88e58c632bp-22,
        -0x1.d855d7a00c415p-16, -0x1.452194b605419p-16, 0x1.38984b76cd3e1p-10, 0x1.99e6923ada66ap-12,
        -0x1.88d48d1d4eb7ap-6, -0x1.346950bfd924ap-9, 0x1.27407dfadee6dp-3, 0.0, -0x1.1d9e95c50ad5p-58,
        0x1.66608ac164dbdp-54, 0x1.ea27591cbbed2p4, 0.0
    },
    {
        -0x1.9c97956d2c98p-29, -0x1.4c05a25681bd6p-26, 0x1.6c5fcebf6fedep-22, 0x1.be20498b75d9ep-20,
        -0x1.a3c94b318b80ap-16, -0x1.71ac0e56e1916p-14, 0x1.195095d9e03f5p-10, 0x1.4584065924f45p-9,
        -0x1.65fa769ed08ap-6, -0x1.c6a65e31bc413p-6, 0x1.106f0d8d3c8dcp-3, 0x1.a37f43abe5fd6p-5, -0x1.fcacff305811ep-59,
        -0x1.6e1ea01cd2abfp-62, 0x1.fp4, 0.0
    },
    {
        -0x1.e657d3fb510c5p-30, -0x1.1902f535a118ap-25, 0x1.baec6b6271a4dp-23, 0x1.873749e0140cdp-19,
        -0x1.06da43d6ab26ep-16, -0x1.513dafd2a22dbp-13, 0x1.6a8a86135889dp-11, 0x1.364df27c09c69p-8,
        -0x1.da314464f12d7p-7, -0x1.c71b822b9863fp-5, 0x1.72772e6dc60bep-4, 0x1.bb58bda614228p-4, 0x1.6576a88ed2b34p-61,
        0x1.9bbf0995519b4p-58, 0x1.f8p4, 0.0
    },
    {
        -0x1.19e122b5b0fd8p-33, -0x1.46ae5f70be3edp-25, 0x1.b4622a938892fp-26, 0x1.ce846d0811b13p-19,
        -0x1.66ca520948a65p-19, -0x1.95daf6000fc26p-13, 0x1.3793607c74858p-13, 0x1.7c77ba1beb73dp-8,
        -0x1.e57325468d067p-9, -0x1.1c7ccd70f033cp-4, 0x1.b3a277ef219a3p-6, 0x1.1ac92af901123p-3, 0x1.d9c4de5dffb33p-65,
        -0x1.01750f17e47efp-57, 0x1p5, 0.0
    },
    {
        0x1.a21078245dce6p-30, -0x1.24ffd8d8477fap-25, -0x1.555c7916d3d9ep-23, 0x1.a53103e3ce213p-19,
        0x1.69797b3c01407p-17, -0x1.775f6c77b5ap-13, -0x1.ba855f4e0f581p-12, 0x1.6577e490bf263p-8, 0x1.fedb519cbd4c8p-8,
        -0x1.0f8ebe5aeca2ap-4, -0x1.5e0d2d4aab5cap-5, 0x1.12401361680bbp-3, 0x1.2cf13d23a9c65p-60,
        0x1.992e8ae8d1f34p-59, 0x1.04p5, 0.0
    },
    {
        0x1.7e365a9e2974dp-29, -0x1.7a5b1d0e01169p-26, -0x1.44a656f8dda89p-22, 0x1.16d24b03bd3d8p-19,
        0x1.675d28bb7979bp-16, -0x1.fd3d025361dbap-14, -0x1.ce6960883bf84p-11, 0x1.f08d41ebadb08p-9,
        0x1.1a4d9284f6ebap-6, -0x1.81ee8000acf26p-5, -0x1.9c2359648d013p-4, 0x1.8e6bb141c87e1p-4,
        -0x1.66b44b817a174p-58, 0x1.5a87fc3e69e5p-60, 0x1.08p5, 0.0
    },
    {
        0x1.ccf1f85322914p-29, -0x1.4981d75a73266p-28, -0x1.8e2256338484ep-22, 0x1.1cb7ddd316f11p-21,
        0x1.c097d8b4f4c65p-16, -0x1.284f59c518765p-15, -0x1.260fa46fab791p-10, 0x1.425b09581a762p-10,
        0x1.6e299714e326dp-6, -0x1.12fd48cfa6285p-6, -0x1.10d0126aab03fp-3, 0x1.339065c1a3a6ep-5,
        -0x1.48f8c4ebc3372p-58, 0x1.1910b3dca1e3ap-59, 0x1.0cp5, 0.0
    },
    {
        0x1.b1bbb7179e5c2p-29, 0x1.7f38731cf9d6ep-28, -0x1.8d523e0c59266p-22, -0x1.a7f9accc666d6p-22,
        0x1.c317f2b14a42cp-16, 0x1.196de1799fcd5p-16, -0x1.2a184be0f04c8p-10, -0x1.624437a2fea63p-12,
        0x1.764141d65208ep-6, 0x1.0a668185c00cbp-9, -0x1.192f23ce3e051p-3, 0.0, 0x1.1bdd9c1893af5p-57,
        0x1.cc62c8409daa7p-53, 0x1.0e34e13a66fe6p5, 0.0
    },
    {
        0x1.23781c897d979p-29, 0x1.e1a71daae6209p-26, -0x1.04d5bff0785fp-22, -0x1.4d217d478a93ep-19,
        0x1.30830e428711dp-16, 0x1.1d618b393d71fp-13, -0x1.9d98c6f4ff737p-11, -0x1.0500ae5bfce89p-8,
        0x1.0ab27f7c44d7ap-6, 0x1.7c916699b9051p-5, -0x1.9b6c292720237p-4, -0x1.70a486cc87db4p-4, 0x1.2692950e6db5ep-58,
        0x1.f06668db21affp-58, 0x1.14p5, 0.0
    },
    {
        0x1.5ba2b3c2c7199p-31, 0x1.3325a43586dcp-25, -0x1.56d512433497dp-24, -0x1.b08c7dcb23019p-19,
        0x1.b3e15975fa9c7p-18, 0x1.79a65003eae3cp-13, -0x1.3f2e8393cf8c7p-12, -0x1.605f5a210c281p-8,
        0x1.b820de5f9241bp-8, 0x1.065aa37827e99p-4, -0x1.685fb13f6a3e2p-5, -0x1.03c7ab589e02cp-3,
        -0x1.39531e0aa2dc8p-60, 0x1.f0cbed8c12475p-57, 0x1.18p5, 0.0
    },
    {
        -0x1.0fec760d55f54p-30, 0x1.2a74519d385e5p-25, 0x1.af19b3e556c9bp-24, -0x1.aa15f662a19b5p-19,
        -0x1.b8f824d18eac5p-18, 0x1.7940aa42c3b8ep-13, 0x1.0308772d46169p-12, -0x1.6510385b4347fp-8,
        -0x1.1c6d8c46c950cp-8, 0x1.0db9cd10c18cp-4, 0x1.6e262e4b7252fp-6, -0x1.0f03d9d922667p-3, -0x1.1c6ad84862f6fp-60,
        0x1.9d69dbd5ec757p-57, 0x1.1cp5, 0.0
    },
    {
        -0x1.43299509818a4p-29, 0x1.b3a1032866da4p-26, 0x1.10aa0a55ec289p-22, -0x1.3cb62d533b878p-19,
        -0x1.2bd27cecced0dp-16, 0x1.1d8c6a7ce569p-13, 0x1.7f45a3b545a83p-11, -0x1.132426a221599p-8,
        -0x1.d0f39d75897fdp-7, 0x1.a70964aec820cp-5, 0x1.51390ff3aeef5p-4, -0x1.b0676c3ca96e8p-4, 0x1.9c65db45ffb48p-59,
        0x1.a3bed72e87181p-59, 0x1.2p5, 0.0
    },
    {
        -0x1.adfb477446177p-29, 0x1.566f0bf82e7abp-27, 0x1.718322eee813dp-22, -0x1.086922ce3a075p-20,
        -0x1.9e54976a934e1p-16, 0x1.f7ccc8f5d07ddp-15, 0x1.0e5d1fad3afd5p-10, -0x1.fe8b2b4af0046p-10,
        -0x1.4f3a7e895bc23p-6, 0x1.9b0970a0e063cp-6, 0x1.f195e941ea4dp-4, -0x1.b64d454cd12c6p-5, 0x1.54b3e3e0819ccp-58,
        -0x1.eb911a431cf3dp-61, 0x1.24p5, 0.0
    },
    {
        -0x1.b10badfb4fbd9p-29, -0x1.47581033056f5p-28, 0x1.7d516eccf694ep-22, 0x1.7452f6f81fbf5p-22,
        -0x1.b06384e1ba5c3p-16, -0x1.ed574b02ba46fp-17, 0x1.1d69ca0d88775p-10, 0x1.3627f261f586bp-12,
        -0x1.6613d93b0180bp-6, -0x1.d242aa5299435p-10, 0x1.0cf3ed059c573p-3, 0.0, 0x1.2e3029d662218p-60,
        0x1.18e7b1f5c77aep-53, 0x1.275637a9619ecp5, 0.0
    },
    {
        -0x1.49087baf7d321p-29, -0x1.8e18626d82059p-26, 0x1.2325ae0e84b98p-22, 0x1.115ff4e38b53bp-19,
        -0x1.5042739619a4dp-16, -0x1.d102cf52c5f73p-14, 0x1.c41b59636f228p-11, 0x1.a6346d86688b6p-9,
        -0x1.20c9c61a64a84p-6, -0x1.318daa9cc851bp-5, 0x1.b9a4f884ee308p-4, 0x1.25c6b50d4a803p-4, 0x1.8a4270674d0dbp-59,
        -0x1.2dd2b75751ed8p-58, 0x1.2cp5, 0.0
    },
    {
        -0x1.28648429d24f6p-30, -0x1.1abb232e135b9p-25, 0x1.12503928a02b1p-23, 0x1.8c4caed4ec464p-19,
        -0x1.4a6ecee26d20ep-17, -0x1.587403881661fp-13, 0x1.ce19dd0334f85p-12, 0x1.400a7ffb5281cp-8,
        -0x1.3239354bb199p-7, -0x1.daaf15ea98cf1p-5, 0x1.e4a779c79975ap-5, 0x1.d44e90f2136bdp-4, 0x1.b63c9379fbe2bp-60,
        0x1.52ec9be1e283dp-60, 0x1.3p5, 0.0
    },
    {
        0x1.09075be4305d2p-31, -0x1.2908ccd6d51ep-25, -0x1.80be5e394b569p-25, 0x1.a5c4f9607ea56p-19,
        0x1.5d497bb93ec1dp-19, -0x1.73826078af70cp-13, -0x1.595dc40babea7p-14, 0x1.5ded6fa7e921p-8,
        0x1.1f74805b2fbcap-10, -0x1.072682f3fd1c3p-4, -0x1.a9350d7616c58p-9, 0x1.0752b05c73c4dp-3,
        -0x1.e371e4f699b58p-63, -0x1.32edc7cabf746p-57, 0x1.34p5, 0.0
    },
    {
        0x1.061fec3cd770cp-29, -0x1.dead13b057e8ap-26, -0x1.b6dbb6bfbe33fp-23, 0x1.58d439355d71fp-19,
        0x1.deaf8c0a1c815p-17, -0x1.3431859c89d52p-13, -0x1.2f6e9c9bf37eep-11, 0x1.268754c145d49p-8,
        0x1.6cf732a9d639ep-7, -0x1.c164c2cdcc6c4p-5, -0x1.065fb1673bd33p-4, 0x1.c81f026dfbe7dp-4,
        -0x1.1138e1e6b42e7p-59, 0x1.140eeb9ee4372p-59, 0x1.38p5, 0.0
    },
    {
        0x1.884cc60ae852dp-29, -0x1.f1ca71ec9cf04p-27, -0x1.4f958ddcf5f9fp-22, 0x1.72b1cf55c8b4p-20,
        0x1.769ed31a02293p-16, -0x1.55f054d449c2fp-14, -0x1.e6d50550c5357p-11, 0x1.50b76fce1ed39p-9,
        0x1.2c9a2cce77ff8p-6, -0x1.0846eb1eddd22p-5, -0x1.bc7f694c1aef7p-4, 0x1.1387b6b29db15p-4, 0x1.4c690f0426397p-58,
        -0x1.a30b951b54401p-59, 0x1.3cp5, 0.0
    },
    {
        0x1.a9b10259c0f57p-29, 0x1.22440cea5784cp-28, -0x1.6f183db767a48p-22, -0x1.4a44cbaa9a9a3p-22,
        0x1.9fc5255a54aadp-16, 0x1.b4fe26edf5fb4p-17, -0x1.123447145627ep-10, -0x1.127cba22894f7p-12,
        0x1.57d3203befd9p-6, 0x1.9c8083b2b7588p-10, -0x1.0230b9797a7b3p-3, 0.0, 0x1.845c7758f4586p-57,
        -0x1.376cc57901722p-55, 0x1.4077a7ed6293ap5, 0.0
    },
    {
        0x1.646e140ea9245p-29, 0x1.38f84a57f8018p-26, -0x1.38e6a72086de7p-22, -0x1.a9e338a7ca5e5p-20,
        0x1.66a557d562ff5p-16, 0x1.66bcebd11fc87p-14, -0x1.debcb4a117747p-11, -0x1.426f25b3acdecp-9,
        0x1.2fbb78bcdfacp-6, 0x1.cdbe4db39a596p-6, -0x1.cd9495ca9ec44p-4, -0x1.b6f303ef20bb2p-5, -0x1.3e7a5926352c5p-58,
        -0x1.437b0690cd374p-62, 0x1.44p5, 0.0
    },
    {
        0x1.92b296eb2adadp-30, 0x1.fca320602aec3p-26, -0x1.6b289c9c0643fp-23, -0x1.62e5c2e51c843p-19,
        0x1.ab305fdbbe845p-17, 0x1.332510b03c04fp-13, -0x1.244fb03ec17d8p-11, -0x1.1c32fdefa2581p-8,
        0x1.7be1803a6bc83p-7, 0x1.a3db9bac8397ap-5, -0x1.2753a7097fe7dp-4, -0x1.9ca79dd7fd59dp-4,
        -0x1.5fa0b755800c7p-61, 0x1.b93fb4760db0fp-58, 0x1.48p5, 0.0
    },
    {
        -0x1.6061cc92aec0dp-38, 0x1.217745c9dc6cap-25, -0x1.f3ce1532bc1c2p-28, -0x1.9932a2fd3209bp-19,
        0x1.27b0fd3b356dap-20, 0x1.66e7a50d5c578p-13, -0x1.297b1e61b1a0ap-14, -0x1.50b2a4bfcf237p-8,
        0x1.f6157c908e558p-10, 0x1.f880023484d4ap-5, -0x1.da175ba02e059p-7, -0x1.f71271bc84b13p-4,
        0x1.0a6ce5e8bd743p-61, 0x1.8979dd488ed6bp-58, 0x1.4cp5, 0.0
    },
    {
        -0x1.9092d5efcedd9p-30, 0x1.fc42d58315cep-26, 0x1.4bb5d85c5c01cp-23, -0x1.6bb4ca638eeeap-19,
        -0x1.65aa459363183p-17, 0x1.42feac4ec6d49p-13, 0x1.bfe3cf0baa591p-12, -0x1.32cfdd9f89987p-8,
        -0x1.09d2ac16d51acp-7, 0x1.d17ccb7242a35p-5, 0x1.78c82cb753065p-5, -0x1.d5f9151f1c01dp-4, 0x1.9b1fae86694c6p-59,
        -0x1.e52b54db079f8p-58, 0x1.5p5, 0.0
    },
    {
        -0x1.5d2f08f6f918ap-29, 0x1.3b4e982ee303p-26, 0x1.295d86c25ed9ap-22, -0x1.cd2ac378052a4p-20,
        -0x1.4a7ffcb0c4b37p-16, 0x1.a2484f9338d89p-14, 0x1.aba8fa264ab23p-11, -0x1.9587e9791ba6p-9,
        -0x1.06f81f75b168ap-6, 0x1.39c44bb184e85p-5, 0x1.83491746b151ep-4, -0x1.42e11f108c177p-4,
        -0x1.a7f67aecff232p-58, 0x1.843fc2048d593p-60, 0x1.54p5, 0.0
    },
    {
        -0x1.9c71b808844b4p-29, -0x1.04a87fd0a9cb8p-28, 0x1.624815c5019e6p-22, 0x1.27860b237633dp-22,
        -0x1.90e32cdbe72edp-16, -0x1.86941a48bee6cp-17, 0x1.0834d8f3fdb03p-10, 0x1.ea52a21487708p-13,
        -0x1.4b24d7a933973p-6, -0x1.70558dddb7c57p-10, 0x1.f13faf32c8e0bp-4, 0.0, -0x1.ccd2953f63c12p-58,
        -0x1.df12b66b26573p-54, 0x1.59992c65d0d8dp5, 0.0
    },
    {
        -0x1.7632e76ed1cc8p-29, -0x1.c782adc10bb0cp-27, 0x1.468fc9867d16fp-22, 0x1.318c81cf5e415p-20,
        -0x1.742d01e94221fp-16, -0x1.fad58174710acp-15, 0x1.ee1a964031d3ep-11, 0x1.bfe2c05b0fcc1p-10,
        -0x1.37e00fdd425a6p-6, -0x1.3ac2e33395de9p-6, 0x1.d7ae199c18d82p-4, 0x1.251328a50d5efp-5,
        -0x1.83e59280cce33p-60, 0x1.4c9b45b626282p-59, 0x1.5cp5, 0.0
    },
    {
        -0x1.ec8cd1a425d3dp-30, -0x1.bd746556c56eep-26, 0x1.b5e2b958c5b67p-23, 0x1.35673b7c20ac1p-19,
        -0x1.fc3243bc6ac56p-17, -0x1.0a92a6d88b711p-13, 0x1.57617ae1ab8dap-11, 0x1.eb2488b89772cp-9,
        -0x1.b9097ea161127p-7, -0x1.693871686330bp-5, 0x1.53299d884dbe4p-4, 0x1.61832230ed0f4p-4,
        -0x1.34aea73ed1d73p-59, 0x1.833edc588cf3ap-58, 0x1.6p5, 0.0
    },
    {
        -0x1.e080b9948e059p-32, -0x1.146e196c0991fp-25, 0x1.db5afb2a2774bp-25, 0x1.85461ff8e8a51p-19,
        -0x1.2eb25d2287741p-18, -0x1.542c1cb4c57a9p-13, 0x1.bbced6cb6dcap-13, 0x1.3e010a188559bp-8,
        -0x1.32578b3867a5bp-8, -0x1.dae83486862aep-5, 0x1.f6747839f6391p-6, 0x1.d81592c57ab78p-4,
        -0x1.d32259c82848fp-63, -0x1.249c12d6a1ee1p-60, 0x1.64p5, 0.0
    },
    {
        0x1.1576528904a2cp-30, -0x1.0690086d8afeep-25, -0x1.c32a4d0eeb3e5p-24, 0x1.75daabb2afe54p-19,
        0x1.dca4d51c0e114p-18, -0x1.4a6082c2a6ab4p-13, -0x1.23b51bbf84ep-12, 0x1.385bb5ce607bap-8, 0x1.517392c8e044cp-8,
        -0x1.d7d01a2c1011ep-5, -0x1.d077b69b4077dp-6, 0x1.da64adacecdf6p-4, -0x1.f4c654637cc7fp-61,
        -0x1.89ec7a6cc6e56p-61, 0x1.68p5, 0.0
    },
    {
        0x1.2dd3bc7cc53cap-29, -0x1.7264856069af9p-26, -0x1.ffa0731044fadp-23, 0x1.0be7b0efadbcp-19,
        0x1.1af77ce5688ddp-16, -0x1.e0f1987791ac6p-14, -0x1.6c6b67e72cddap-11, 0x1.cdba9eba1a813p-9,
        0x1.be0d68d6184e3p-7, -0x1.61fbf9de687fcp-5, -0x1.46ead5b4787efp-4, 0x1.692b55c63e22ep-4, -0x1.1c6324ffade5p-58,
        0x1.ccc8d2c13f292p-58, 0x1.6cp5, 0.0
    },
    {
        0x1.861593b0204e9p-29, -0x1.fdee56a23c02dp-28, -0x1.4f484863bc821p-22, 0x1.8853dfe5bf8f7p-21,
        0x1.7855641ef9592p-16, -0x1.74908203bb32bp-15, -0x1.ec16715ccc3c8p-11, 0x1.78950317963c1p-10,
        0x1.31f29e1e6f846p-6, -0x1.2ea83163ae8e7p-6, -0x1.c7d8e6759406dp-4, 0x1.4279f8a07235bp-5,
        -0x1.b7c840abd385dp-58, 0x1.ef7878ac591b1p-59, 0x1.7p5, 0.0
    },
    {
        0x1.81aa64b74f04fp-29, 0x1.dd0c8205bdc25p-29, -0x1.56b1beeee95e9p-22, -0x1.0a6ee8a35a6f7p-22,
        0x1.83770cafffe2fp-16, 0x1.5fd096d22db49p-17, -0x1.fe6fdc644bcadp-11, -0x1.b9694d71475p-13,
        0x1.3fc442153435cp-6, 0x1.4b85897b3635ap-10, -0x1.e018d99f5da1bp-4, 0.0, -0x1.f5dc6e819856ap-59,
        -0x1.eab3b2bf5813dp-54, 0x1.72bac0f81081p5, 0.0
    },
    {
        0x1.1aeff252f3289p-29, 0x1.7975fb3c9e37ap-26, -0x1.f27ce1f25231ep-23, -0x1.04d5d90ccbc4fp-19,
        0x1.1ebe2e3106ea3p-16, 0x1.bf22f873ae2b7p-14, -0x1.8049881251c3ep-11, -0x1.99c44914301bcp-9,
        0x1.e9b8065684f02p-7, 0x1.2bc9fd28a7c9cp-5, -0x1.75d63c58ea293p-4, -0x1.23d5c56820152p-4, 0x1.7e041feb09ddcp-58,
        0x1.7ce38c093973ap-60, 0x1.78p5, 0.0
    },
    {
        0x1.cd968849e6a6cp-31, 0x1.0296801da3032p-25, -0x1.a91969143886ap-24, -0x1.6ae1d548cda88p-19,
        0x1.fdcb2a1c87ea9p-18, 0x1.3c0a570661a92p-13, -0x1.631ea1dc64a98p-12, -0x1.267c41afca8cfp-8,
        0x1.d541996dfb385p-8, 0x1.b66a5db24d061p-5, -0x1.7290e703deb26p-5, -0x1.b283c9bfbbdbcp-4, 0x1.81cb9df8f2854p-59,
        -0x1.9fd1f3d324b2bp-58, 0x1.7cp5, 0.0
    },
    {
        -0x1.39d12b707b6d9p-31, 0x1.0903c3b58012p-25, 0x1.e842f3dc5ef3ap-25, -0x1.77cb9df59bf18p-19,
        -0x1.e9452800a3bedp-19, 0x1.4ac6ff679dd55p-13, 0x1.18b3d53c12091p-13, -0x1.378d8bce1add8p-8,
        -0x1.2b7a5add486bap-9, 0x1.d4e7c892cb5a3p-5, 0x1.733a2637b47bdp-7, -0x1.d5df44ac45d29p-4, 0x1.2fcdf79bd57e6p-63,
        0x1.cc48ece6de95bp-58, 0x1.8p5, 0.0
    },
    {
        -0x1.f6b947d4e7f2ep-30, 0x1.9e2a37a7e9737p-26, 0x1.a7b1965ffe727p-23, -0x1.29576167541f4p-19,
        -0x1.d1fc198850c99p-17, 0x1.08fed1773a894p-13, 0x1.2a4ef3cc92946p-11, -0x1.f95fac2b89744p-9,
        -0x1.6af4778da37fap-7, 0x1.80f736ac59d1ap-5, 0x1.08642403ac81ap-4, -0x1.866ac34ac6f15p-4, 0x1.0373b4af1224bp-58,
        -0x1.2ba80b05a14f2p-60, 0x1.84p5, 0.0
    },
    {
        -0x1.699b134b9ebebp-29, 0x1.8de725c527e1p-27, 0x1.35bd66ec4928ap-22, -0x1.26f36d17a13ebp-20,
        -0x1.5a8015d77549fp-16, 0x1.0ef9c68db07c1p-14, 0x1.c39b20e67eb0fp-11, -0x1.09f1f32d738adp-9,
        -0x1.17e58265b1c6cp-6, 0x1.a0630c3f049cp-6, 0x1.9fc4e3c403e6ep-4, -0x1.b15b6922727bap-5, 0x1.370b81d349cbbp-60,
        -0x1.787635246c4c5p-59, 0x1.88p5, 0.0
    },
    {
        -0x1.7f353350a9025p-29, -0x1.aa2ffb828d01bp-29, 0x1.4c1b4345093b7p-22, 0x1.e399eadca44c9p-23,
        -0x1.774892104a413p-16, -0x1.3f0cb937bd05dp-17, 0x1.ee2a36979ea71p-11, 0x1.901e4c495a64p-13,
        -0x1.357bfc2be586p-6, -0x1.2c74f6d120022p-10, 0x1.d09b210b30218p-4, 0.0, -0x1.ebad42b39070ap-60,
        -0x1.37950646672p-52, 0x1.8bdc6293f0657p5, 0.0
    },
    {
        -0x1.375d2b8413d23p-29, -0x1.32231fd7a9123p-26, 0x1.1086a94b0feb6p-22, 0x1.a45cbe4500812p-20,
        -0x1.3796d8431024cp-16, -0x1.65e56900de11ep-14, 0x1.9f1d295830f84p-11, 0x1.45b85d6d7b993p-9,
        -0x1.0702dced38b8cp-6, -0x1.d930e089df233p-6, 0x1.8f68900c5532ap-4, 0x1.c936ef41b2c5p-5, -0x1.801ff073f78dcp-58,
        -0x1.3da353fa38bb6p-61, 0x1.9p5, 0.0
    },
    {
        -0x1.49999f548924bp-30, -0x1.d9305fa727e16p-26, 0x1.27f1f243bd401p-23, 0x1.4ae7fc1e6afe9p-19,
        -0x1.5ac579c306d7bp-17, -0x1.1f3efc2f205d9p-13, 0x1.d8fdfb7b95049p-12, 0x1.0acc48e43a3c1p-8,
        -0x1.3285a32e64c7bp-7, -0x1.8bf579f9e087ep-5, 0x1.dba6ad6aeb9ep-5, 0x1.873fdda52cc5bp-4, 0x1.fcc3af83e2ddfp-62,
        -0x1.8742790c3e6f9p-58, 0x1.94p5, 0.0
    },
    {
        0x1.45fd2dcf1dd89p-33, -0x1.05e3dcfaf1608p-25, -0x1.6a442b1f0fd0fp-27, 0x1.72158b2e6563dp-19,
        0x1.671c61bf0ab9bp-22, -0x1.44a9e38453cc1p-13, 0x1.0eb6c00e8122cp-18, 0x1.30d087fddcaa4p-8,
        -0x1.d2c3f52a63dafp-12, -0x1.c95bfd76a3ff4p-5, 0x1.3ea514197510cp-8, 0x1.c8f805e8ce34fp-4,
        -0x1.c324450d86842p-63, -0x1.af36e74a2d395p-58, 0x1.98p5, 0.0
    },
    {
        0x1.8dbddc04d43f4p-30, -0x1.beba2d7e5d426p-26, -0x1.4cb4883bbb98ep-23, 0x1.3efa786fa4027p-19,
        0x1.6b0d0fb6e3a56p-17, -0x1.1acaaed7ebe1dp-13, -0x1.cd059bfc05a1dp-12, 0x1.0c4e64e01e978p-8,
        0x1.160ea145b9ddp-7, -0x1.96d002f1f880ap-5, -0x1.917043d0a5d1fp-5, 0x1.9ab5c2fb73e61p-4, 0x1.de96d7335793cp-59,
        -0x1.59cd294887a99p-60, 0x1.9cp5, 0.0
    },
    {
        0x1.477010505678cp-29, -0x1.05ec252b018d8p-26, -0x1.17854e7434386p-22, 0x1.7db59971fe54dp-20,
        0x1.37a5a928cc648p-16, -0x1.59211eb478d38p-14, -0x1.94d79b67e09a8p-11, 0x1.4dbd907cea3fp-9,
        0x1.f43432c423636p-7, -0x1.01b4871ab3bd6p-5, -0x1.725581ea40327p-4, 0x1.08d3b5e90d97p-4, -0x1.efb8f5a88c3cp-59,
        -0x1.03fcc89a56ea2p-58, 0x1.ap5, 0.0
    },
    {
        0x1.774e32c887067p-29, 0x1.8658e24f809e4p-29, -0x1.426ec61c54d7ep-22, -0x1.b9733633d912bp-23,
        0x1.6c2a7555777f8p-16, 0x1.230fede9f5318p-17, -0x1.df586d8b78238p-11, -0x1.6ce18f8229ee2p-13,
        0x1.2c21da135f56cp-6, 0x1.11f52577ff877p-10, -0x1.c28612a3bc18bp-4, 0.0, 0x1.6083941afdb59p-59,
        -0x1.bd526bce38ac7p-53, 0x1.a4fe0ee444c7bp5, 0.0
    },
    {
        0x1.4ba8bb6f8a40bp-29, 0x1.d1d13c7b453cep-27, -0x1.20e4228e68cdbp-22, -0x1.3ccc3bc34cc64p-20,
        0x1.48c252982d935p-16, 0x1.0b06b13b2d398p-14, -0x1.b4059dcd6349fp-11, -0x1.e0e101df03feap-10,
        0x1.131228acd11f7p-6, 0x1.5958a14b334d4p-6, -0x1.a003321104cf6p-4, -0x1.49a5cae04b457p-5,
        -0x1.09e8770a24886p-58, -0x1.3f4136ba35e8bp-60, 0x1.a8p5, 0.0
    },
    {
        0x1.9fb1db56571b7p-30, 0x1.a6363094899b9p-26, -0x1.705a982b32ec7p-23, -0x1.263ca421ef13dp-19,
        0x1.aa454b4f3b4fdp-17, 0x1.fd13e6bc67c2dp-14, -0x1.1f53ce9e10524p-11, -0x1.d73bb021fddebp-9,
        0x1.7055bb4792c29p-7, 0x1.5c822da75482ap-5, -0x1.1add3a42a1542p-4, -0x1.5738a8f9d2b0fp-4, 0x1.cd3e0f03a55fep-58,
        0x1.9105f7e5d0549p-60, 0x1.acp5, 0.0
    },
    {
        0x1.155a616712854p-32, 0x1.fb3ec090462fap-26, -0x1.1d48075eaf271p-25, -0x1.6551688515afep-19,
        0x1.76020dd642832p-19, 0x1.388b229556f51p-13, -0x1.18693a72c80c7p-13, -0x1.249a3a9b656cbp-8,
        0x1.8a2db6b9bec54p-9, 0x1.b5d61b182336fp-5, -0x1.482dc56993d81p-6, -0x1.b4512737a615fp-4,
        -0x1.2c77dfc57535bp-60, -0x1.46a703b39dd58p-60, 0x1.bp5, 0.0
    },
    {
        -0x1.22c878e6ba0efp-30, 0x1.d4499fb1ab9c9p-26, 0x1.e0bf0a5805fep-24, -0x1.4cf88bef6e4c7p-19,
        -0x1.02fa7aab6d48cp-17, 0x1.25ffa36497d25p-13, 0x1.44611e07236d9p-12, -0x1.15d994ac3fa32p-8,
        -0x1.81831ce152ef8p-8, 0x1.a3b55a62ba59cp-5, 0x1.11d2fc7a2a8d3p-5, -0x1.a63876896d3c8p-4, 0x1.2a66730a975f3p-59,
        -0x1.36756e524ae51p-62, 0x1.b4p5, 0.0
    },
    {
        -0x1.208d2edba24e5p-29, 0x1.3be5dc305d0abp-26, 0x1.eade63c8fd612p-23, -0x1.c7ca80a953dp-20,
        -0x1.10a74c48e7378p-16, 0x1.983663c3e77f2p-14, 0x1.60e8e7ae91897p-11, -0x1.87346d1de998p-9,
        -0x1.b2782bc64975fp-7, 0x1.2b85b8fbf597dp-5, 0x1.40831cb7250f4p-4, -0x1.31598f9d8b365p-4, 0x1.37dba39f615c4p-58,
        -0x1.ea09db1cdc393p-61, 0x1.b8p5, 0.0
    },
    {
        -0x1.685dacefed0c3p-29, 0x1.605a10a86be7dp-28, 0x1.35ebbdc848c23p-22, -0x1.116320cef0c26p-21,
        -0x1.5c3b4a920321bp-16, 0x1.0577b88e172acp-15, 0x1.c809807060849p-11, -0x1.09eedbb07b984p-10,
        -0x1.1c1ab5f8bcfc3p-6, 0x1.addf6fc6bcd3ep-7, 0x1.a85ba02171fep-4, -0x1.cc7508007fdaap-6, -0x1.0dd419532d872p-58,
        -0x1.5ef561872d06dp-60, 0x1.bcp5, 0.0
    },
    {
        -0x1.5c63d06bfaf01p-29, -0x1.7703cab7df6ebp-29, 0x1.399d3ea3655ap-22, 0x1.95025eab8232ep-23,
        -0x1.61f7cdd502e65p-16, -0x1.0aeec7429c83dp-17, 0x1.d1c6a18cc47abp-11, 0x1.4e86a1e632b74p-13,
        -0x1.23940d01de8eap-6, -0x1.f645fdb1a90dap-11, 0x1.b5a6219b35e14p-4, 0.0, 0x1.2660a6512e6c1p-59,
        0x1.14dbc2a692434p-52, 0x1.be1fc41a4c607p5, 0.0
    },
    {
        -0x1.e86b11e4d12a3p-30, -0x1.6d8faab10e811p-26, 0x1.ad40f94ea726fp-23, 0x1.fb8bf7a98457dp-20,
        -0x1.ecd93f75986ap-17, -0x1.b55c6744460a9p-14, 0x1.49b761c5ea2e2p-11, 0x1.9343786bddf3ep-9,
        -0x1.a3a9ee21c0bd8p-7, -0x1.29110b1d8b09cp-5, 0x1.401b1e7b1f23ep-4, 0x1.2366a6e4fe06ep-4, 0x1.54c007c54b1ebp-59,
        0x1.ca68743f7dc78p-62, 0x1.c4p5, 0.0
    },
    {
        -0x1.57ac45efa7c4dp-31, -0x1.e15bf18a52456p-26, 0x1.3d281bde1b9b5p-24, 0x1.52246ea0d892ap-19,
        -0x1.7d0a29dd5577fp-18, -0x1.26f7d5ca32574p-13, 0x1.09e4ffee37539p-12, 0x1.136b43a64062bp-8,
        -0x1.5ffc2f3772a7p-8, -0x1.9b113e430d063p-5, 0x1.167f7a05bec4bp-5, 0x1.989fd8238fd79p-4, 0x1.f8c4303bf49b6p-59,
        -0x1.b09d40c0bd443p-59, 0x1.c8p5, 0.0
    },
    {
        0x1.6fa8ea1d900ecp-31, -0x1.df2a99ffe045bp-26, -0x1.28ae85769a71p-24, 0x1.538ca17f0519bp-19,
        0x1.371971d961752p-18, -0x1.2ad188f15416cp-13, -0x1.79e54a8b6f2d9p-13, 0x1.198179c0e6e5dp-8,
        0x1.b1ab0f8c202e4p-9, -0x1.a7edae8303e9fp-5, -0x1.27d9971e87268p-6, 0x1.a936f9be23aaap-4, 0x1.e31516662fcb9p-62,
        0x1.9f57798273f43p-58, 0x1.ccp5, 0.0
    },
    {
        0x1.ebd6d7b1dbe53p-30, -0x1.688232cb81ebcp-26, -0x1.a096c4730e5b7p-23, 0x1.025bbcde6f1cap-19,
        0x1.ccd11cd85c13ep-17, -0x1.cbd57de983266p-14, -0x1.28f0ca468377p-11, 0x1.b5fdcc20d17a1p-9,
        0x1.6bf653ed16522p-7, -0x1.4d653ad085c09p-5, -0x1.0b4d8c9561429p-4, 0x1.52010cafc9a2dp-4,
        -0x1.01e66ac5b214dp-58, 0x1.d4ee4fcc09e02p-58, 0x1.dp5, 0.0
    },
    {
        0x1.52df37150b131p-29, -0x1.3664ef65146c8p-27, -0x1.22a381d2deb4cp-22, 0x1.cc09dec4aabebp-21,
        0x1.45b033384821p-16, -0x1.a6962b0798893p-15, -0x1.a9649323fbb29p-11, 0x1.9ec651c9ac26ap-10,
        0x1.0855346f3f97ap-6, -0x1.44d189620fc5cp-6, -0x1.89d68ddc41e24p-4, 0x1.5248762a23877p-5,
        -0x1.31db70a9b1037p-58, 0x1.db46405cc0e9fp-59, 0x1.d4p5, 0.0
    },
    {
        0x1.5dafa88088fe9p-29, 0x1.4b6be62094671p-29, -0x1.3152e3591d16ap-22, -0x1.7564956effe95p-23,
        0x1.58924fa6fe148p-16, 0x1.ebe9e6619355bp-18, -0x1.c54a7bd6f42acp-11, -0x1.3427f4797b4b3p-13,
        0x1.1bb71f665dcep-6, 0x1.cea253049a4d5p-11, -0x1.a9d1835947d7p-4, 0.0, 0x1.39502ed5a45dap-62,
        0x1.c341b9f831174p-53, 0x1.d74180c9e41f6p5, 0.0
    },
    {
        0x1.11a7962d5a29p-29, 0x1.308e7e36c79d3p-26, -0x1.de488a8f995acp-23, -0x1.a4d6de0631b8cp-20,
        0x1.1110bde10b1b5p-16, 0x1.68e15fcdbe3dp-14, -0x1.6b6f04b849fcep-11, -0x1.4b1700b9015b5p-9,
        0x1.cc3cb8032cbadp-7, 0x1.e5501e98d1373p-6, -0x1.5d5ad604c9931p-4, -0x1.d991e81347369p-5, 0x1.98f9c8d601e06p-58,
        0x1.50efc4a5042f1p-62, 0x1.dcp5, 0.0
    },
    {
        0x1.0967813d6005ap-30, 0x1.bf1fde855bb1p-26, -0x1.dc0eb3ec7b7adp-24, -0x1.394018bc0a8acp-19,
        0x1.16a40a906481bp-17, 0x1.108821959ac8fp-13, -0x1.7bcb0fe186ecep-12, -0x1.fb9e1c7bc630bp-9,
        0x1.ec0b3de79fe22p-8, 0x1.79d98114e8872p-5, -0x1.7dbbe4c935826p-5, -0x1.76ab237119261p-4,
        -0x1.dff23d9dffbafp-59, 0x1.dd70b232be4b8p-59, 0x1.ep5, 0.0
    },
    {
        -0x1.3b0a8fe2c9fbfp-32, 0x1.dfcce18f3f44fp-26, 0x1.d15ffbc9e7fcbp-26, -0x1.53060e737b431p-19,
        -0x1.b3bdf6bf89702p-20, 0x1.2985b3735e493p-13, 0x1.c726cb24bc6cp-15, -0x1.17867743ee7efp-8,
        -0x1.a5adf5384a9d3p-11, 0x1.a3d8094c2aec2p-5, 0x1.9a90b509936e8p-9, -0x1.a40e5370ccfb6p-4, 0x1.23ac1950fde7p-63,
        0x1.a04d33cb92dep-59, 0x1.e4p5, 0.0
    },
    {
        -0x1.910629ac95da7p-30, 0x1.8b85459f3a938p-26, 0x1.51d480a99cbap-23, -0x1.1a182c59a626cp-19,
        -0x1.739bd699dfa8fp-17, 0x1.f3c174d58650ap-14, 0x1.dc26e3874ced4p-12, -0x1.d9e490a04ad4ep-9,
        -0x1.221296b2fdadcp-7, 0x1.672d622851c24p-5, 0x1.a772481ca5a36p-5, -0x1.6aa5ed3d89ac8p-4, -0x1.ae8533fcd1d1p-59,
        -0x1.2c870bb693248p-60, 0x1.e8p5, 0.0
    },
    {
        -0x1.379b5eec00de4p-29, 0x1.af6badfe90d65p-27, 0x1.0a8799ab394c5p-22, -0x1.39f468b000511p-20,
        -0x1.29de9fcd7133ep-16, 0x1.1b9141938276ap-14, 0x1.8406a1aced58bp-11, -0x1.11fee2b681fb7p-9,
        -0x1.e0f73a32219aap-7, 0x1.a6f11c8ba88dap-6, 0x1.656157263dcb7p-4, -0x1.b2905fe665e14p-5, 0x1.e1e83eff44e5bp-60,
        0x1.d06cee49ab5a6p-59, 0x1.ecp5, 0.0
    },
    {
        -0x1.59e60b56fea0dp-29, -0x1.319d02613f7b4p-29, 0x1.29b68c7b6d4d6p-22, 0x1.59a1c0b07aef1p-23,
        -0x1.4fe0b3696e50bp-16, -0x1.c72c9d4a26318p-18, 0x1.b9c10ddf62d7dp-11, 0x1.1d137345cfd8cp-13,
        -0x1.147481084ae1p-6, -0x1.abf28ad5bf062p-11, 0x1.9ee5ee937fc89p-4, 0.0, 0x1.d9bc0cb90f9b5p-58,
        -0x1.9e23f9c9ca91ep-52, 0x1.f06343d0971d4p5, 0.0
    },
    {
        -0x1.280e48b16e7c1p-29, -0x1.e1057d589d188p-27, 0x1.019ffa8c2aa01p-22, 0x1.4a27f816d0999p-20,
        -0x1.24f67d4cce7b2p-16, -0x1.192d52f007576p-14, 0x1.845dde4c3508ep-11, 0x1.001f419916e69p-9,
        -0x1.e9ed1f51b2c13p-7, -0x1.749f2bf9f55c3p-6, 0x1.728540e977fb9p-4, 0x1.68c3de1f8b1efp-5, 0x1.1a1d6b9d9e499p-58,
        -0x1.26dcaed03f4d8p-59, 0x1.f4p5, 0.0
    },
    {
        -0x1.5ce2a9a8e86b1p-30, -0x1.959b0b6cb9a47p-26, 0x1.34b7ff4606531p-23, 0x1.1b6138d7e1a3p-19,
        -0x1.64d5e22a0ae6cp-17, -0x1.ebbca57348922p-14, 0x1.e0998c62b59ffp-12, 0x1.c8b5b84264e3cp-9,
        -0x1.33d890a4e75d7p-7, -0x1.530a5008d56e2p-5, 0x1.d8a6b55e687e3p-5, 0x1.4f4a01638354cp-4, 0x1.e68934bd939fap-59,
        -0x1.c3dfab25367a7p-60, 0x1.f8p5, 0.0
    },
    {
        -0x1.6aa43a7a2110fp-34, -0x1.d6bdceca8e59ep-26, 0x1.caa1908242bc1p-27, 0x1.4bc8839d6bebp-19,
        -0x1.554c97e02547bp-20, -0x1.22730b2027a3ap-13, 0x1.16f044fdb8cfcp-14, 0x1.10395735ea7bdp-8,
        -0x1.a17938b71ac45p-10, -0x1.97ec1d01d5769p-5, 0x1.6c965c61ae6fap-7, 0x1.9734625e5dafdp-4,
        0x1.5ea83f1387795p-61, 0x1.92c3ce915e601p-59, 0x1.fcp5, 0.0
    },
};

}  // namespace orvik::zym::bessel
