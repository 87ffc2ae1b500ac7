"""What all tests of the package share: one way to look for examples, without a clock, a database or chance."""
import os

import hypothesis

hypothesis.settings.register_profile(
    "orvik", deadline=None, database=None, derandomize=True, max_examples=int(os.environ.get("ORVIK_EXAMPLES", "100")),
    suppress_health_check=[hypothesis.HealthCheck.too_slow, hypothesis.HealthCheck.data_too_large])
hypothesis.settings.load_profile("orvik")
