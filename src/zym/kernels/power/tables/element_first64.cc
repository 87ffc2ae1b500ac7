// Written by tools/approx from the rule in zym/kernels/power/tables.h; do not edit.
#include "zym/kernels/power/tables.h"

// clang-format off
namespace orvik::zym {

alignas(64) const double kElementFirst64[17][3] = {
    {0x1p0, 0.0, 0.0}, {0x1.e2p-1, 0x1.64ce26c067157p-4, -0x1.2f06f5b695b1dp-58},
    {0x1.c7p-1, 0x1.5cba53a0762edp-3, 0x1.a8e6b40f5e2f6p-58}, {0x1.afp-1, 0x1.fcd677e5ac81dp-3, -0x1.2234497dc6cc2p-58},
    {0x1.998p-1, 0x1.4a03dcbd2e1bep-2, -0x1.b7c372887e95p-57}, {0x1.86p-1, 0x1.921800924dd3bp-2, 0x1.fdc46af571993p-56},
    {0x1.748p-1, 0x1.d5eac4d463d7ep-2, -0x1.eba62c34c35a7p-58},
    {0x1.64p-1, 0x1.0c6caaf0c5597p-1, -0x1.8a33c25e8e226p-59},
    {0x1.558p-1, 0x1.2b23e51b39c7bp-1, 0x1.98a209c62b89dp-60},
    {0x1.478p-1, 0x1.4a0f6bcc83ef9p-1, 0x1.480d56d0c2bfdp-55}, {0x1.3bp-1, 0x1.66ce34e4a6be5p-1, 0x1.947070fc4aa84p-56},
    {0x1.2f8p-1, 0x1.8246ea6a6006bp-1, -0x1.58d45d3945e17p-55},
    {0x1.248p-1, 0x1.9d8bcbd52f3cdp-1, -0x1.a1dba01c986d6p-56},
    {0x1.1a8p-1, 0x1.b73dbe68b5a1cp-1, -0x1.3e788c5886f5bp-55},
    {0x1.11p-1, 0x1.d08222d28ebbp-1, -0x1.3c41ae323543fp-56}, {0x1.088p-1, 0x1.e7df5fe538ab3p-1, 0x1.3bed456b24ed1p-55},
    {0x1p-1, 0x1p0, 0.0}
};

}  // namespace orvik::zym
