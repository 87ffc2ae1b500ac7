// Written by tools/approx from the rule in zym/kernels/explog/tables.h; do not edit.
#include "zym/kernels/explog/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const double kLnShort[97] = {
    0x1.269621134db92p-2, 0x1.1bf99635a6b95p-2, 0x1.1178e8227e47cp-2, 0x1.07138604d5862p-2, 0x1.f991c6cb3b379p-3,
    0x1.e530effe71012p-3, 0x1.d1037f2655e7bp-3, 0x1.bd087383bd8adp-3, 0x1.a93ed3c8ad9e3p-3, 0x1.95a5adcf7017fp-3,
    0x1.823c16551a3c2p-3, 0x1.6f0128b756abcp-3, 0x1.5bf406b543db2p-3, 0x1.4913d8333b561p-3, 0x1.365fcb0159016p-3,
    0x1.23d712a49c202p-3, 0x1.1178e8227e47cp-3, 0x1.fe89139dbd566p-4, 0x1.da727638446a2p-4, 0x1.b6ac88dad5b1cp-4,
    0x1.9335e5d594989p-4, 0x1.700d30aeac0e1p-4, 0x1.4d3115d207eacp-4, 0x1.2aa04a44717a5p-4, 0x1.08598b59e3a07p-4,
    0x1.ccb73cdddb2ccp-5, 0x1.894aa149fb343p-5, 0x1.466aed42de3eap-5, 0x1.0415d89e74444p-5, 0x1.8492528c8cabfp-6,
    0x1.0205658935847p-6, 0x1.010157588de71p-7, 0.0, -0x1.fe02a6b106789p-8, -0x1.fc0a8b0fc03e4p-7,
    -0x1.7b91b07d5b11bp-6, -0x1.f829b0e7833p-6, -0x1.39e87b9febd6p-5, -0x1.77458f632dcfcp-5, -0x1.b42dd711971bfp-5,
    -0x1.f0a30c01162a6p-5, -0x1.16536eea37ae1p-4, -0x1.341d7961bd1d1p-4, -0x1.51b073f06183fp-4, -0x1.6f0d28ae56b4cp-4,
    -0x1.8c345d6319b21p-4, -0x1.a926d3a4ad563p-4, -0x1.c5e548f5bc743p-4, -0x1.e27076e2af2e6p-4, -0x1.fec9131dbeabbp-4,
    -0x1.0d77e7cd08e59p-3, -0x1.1b72ad52f67ap-3, -0x1.29552f81ff523p-3, -0x1.371fc201e8f74p-3, -0x1.44d2b6ccb7d1ep-3,
    -0x1.526e5e3a1b438p-3, -0x1.5ff3070a793d4p-3, -0x1.6d60fe719d21dp-3, -0x1.7ab890210d909p-3, -0x1.87fa06520c911p-3,
    -0x1.9525a9cf456b4p-3, -0x1.a23bc1fe2b563p-3, -0x1.af3c94e80bff3p-3, -0x1.bc286742d8cd6p-3, -0x1.c8ff7c79a9a22p-3,
    -0x1.d5c216b4fbb91p-3, -0x1.e27076e2af2e6p-3, -0x1.ef0adcbdc5936p-3, -0x1.fb9186d5e3e2bp-3, -0x1.0402594b4d041p-2,
    -0x1.0a324e27390e3p-2, -0x1.1058bf9ae4ad5p-2, -0x1.1675cababa60ep-2, -0x1.1c898c16999fbp-2, -0x1.22941fbcf7966p-2,
    -0x1.2895a13de86a3p-2, -0x1.2e8e2bae11d31p-2, -0x1.347dd9a987d55p-2, -0x1.3a64c556945eap-2, -0x1.404308686a7e4p-2,
    -0x1.4618bc21c5ec2p-2, -0x1.4be5f957778a1p-2, -0x1.51aad872df82dp-2, -0x1.5767717455a6cp-2, -0x1.5d1bdbf5809cap-2,
    -0x1.62c82f2b9c795p-2, -0x1.686c81e9b14afp-2, -0x1.6e08eaa2ba1e4p-2, -0x1.739d7f6bbd007p-2, -0x1.792a55fdd47a2p-2,
    -0x1.7eaf83b82afc3p-2, -0x1.842d1da1e8b17p-2, -0x1.89a3386c1425bp-2, -0x1.8f11e873662c7p-2, -0x1.947941c2116fbp-2,
    -0x1.99d958117e08bp-2, -0x1.9f323ecbf984cp-2
};

}  // namespace orvik::zym
