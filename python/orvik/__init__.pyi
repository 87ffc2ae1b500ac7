from . import interpolate as interpolate
from . import random as random
from . import stats as stats
from ._accuracy import accuracy as accuracy
from ._accuracy import get_accuracy as get_accuracy
from ._accuracy import set_accuracy as set_accuracy
from ._math import *
from ._math import __version__ as __version__
from ._math import get_num_threads as get_num_threads
from ._math import set_num_threads as set_num_threads
