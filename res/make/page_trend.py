"""Page 5, Trend."""
from layout import *

PAGE = strip() + tabs(2, (1, 2, 3, 4, 5))
