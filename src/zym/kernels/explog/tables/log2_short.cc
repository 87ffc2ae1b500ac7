// Written by tools/approx from the rule in zym/kernels/explog/tables.h; do not edit.
#include "zym/kernels/explog/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const double kLog2Short[97] = {
    0x1.a8ff971810a5ep-2, 0x1.99b072a96c6b2p-2, 0x1.8a8980abfbd32p-2, 0x1.7b89f02cf2aadp-2, 0x1.6cb0f6865c8eap-2,
    0x1.5dfdcf1eeae0ep-2, 0x1.4f6fbb2cec598p-2, 0x1.4106017c3eca3p-2, 0x1.32bfee370ee68p-2, 0x1.249cd2b13cd6cp-2,
    0x1.169c05363f158p-2, 0x1.08bce0d95fa38p-2, 0x1.f5fd8a9063e35p-3, 0x1.dac22d3e441d3p-3, 0x1.bfc67a7fff4ccp-3,
    0x1.a5094b54d2828p-3, 0x1.8a8980abfbd32p-3, 0x1.7046031c79f85p-3, 0x1.563dc29ffacb2p-3, 0x1.3c6fb650cde51p-3,
    0x1.22dadc2ab3497p-3, 0x1.097e38ce60649p-3, 0x1.e0b1ae8f2fd56p-4, 0x1.aed391ab6674ep-4, 0x1.7d60496cfbb4cp-4,
    0x1.4c560fe68af88p-4, 0x1.1bb32a600549dp-4, 0x1.d6ebd1f1febfep-5, 0x1.77394c9d958d5p-5, 0x1.184b8e4c56af8p-5,
    0x1.743ee861f3556p-6, 0x1.72c7ba20f7327p-7, 0.0, -0x1.6fe50b6ef0851p-7, -0x1.6e79685c2d22ap-6,
    -0x1.11cd1d5133413p-5, -0x1.6bad3758efd87p-5, -0x1.c4dfab90aab5fp-5, -0x1.0eb389fa29f9bp-4, -0x1.3aa2fdd27f1c3p-4,
    -0x1.663f6fac91316p-4, -0x1.918a16e46335bp-4, -0x1.bc84240adabbap-4, -0x1.e72ec117fa5b2p-4, -0x1.08c588cda79e4p-3,
    -0x1.1dcd197552b7bp-3, -0x1.32ae9e278ae1ap-3, -0x1.476a9f983f74dp-3, -0x1.5c01a39fbd688p-3, -0x1.70742d4ef027fp-3,
    -0x1.84c2bd02f03b3p-3, -0x1.98edd077e70dfp-3, -0x1.acf5e2db4ec94p-3, -0x1.c0db6cdd94deep-3, -0x1.d49ee4c32597p-3,
    -0x1.e840be74e6a4dp-3, -0x1.fbc16b902680ap-3, -0x1.0790adbb03009p-2, -0x1.11307dad30b76p-2, -0x1.1ac05b291f07p-2,
    -0x1.24407ab0e073ap-2, -0x1.2db10fc4d9aafp-2, -0x1.37124cea4cdedp-2, -0x1.406463b1b0449p-2, -0x1.49a784bcd1b8bp-2,
    -0x1.52dbdfc4c96b3p-2, -0x1.5c01a39fbd688p-2, -0x1.6518fe4677ba7p-2, -0x1.6e221cd9d0cdep-2, -0x1.771d2ba7efb3cp-2,
    -0x1.800a563161c54p-2, -0x1.88e9c72e0b226p-2, -0x1.91bba891f1709p-2, -0x1.9a802391e232fp-2, -0x1.a33760a7f6051p-2,
    -0x1.abe18797f1f49p-2, -0x1.b47ebf73882a1p-2, -0x1.bd0f2e9e79031p-2, -0x1.c592fad295b56p-2, -0x1.ce0a4923a587dp-2,
    -0x1.d6753e032ea0fp-2, -0x1.ded3fd442364cp-2, -0x1.e726aa1e754d2p-2, -0x1.ef6d67328e22p-2, -0x1.f7a8568cb06cfp-2,
    -0x1.ffd799a83ff9bp-2, -0x1.03fda8b97997fp-1, -0x1.0809cf27f703dp-1, -0x1.0c10500d63aa6p-1, -0x1.10113b153c8eap-1,
    -0x1.140c9faa1e544p-1, -0x1.18028cf72976ap-1, -0x1.1bf311e95d00ep-1, -0x1.1fde3d30e8126p-1, -0x1.23c41d42727c8p-1,
    -0x1.27a4c0585cbf8p-1, -0x1.2b803473f7ad1p-1
};

}  // namespace orvik::zym
