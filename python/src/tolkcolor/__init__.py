"""Image colour conversion over NumPy arrays: every function of the TolkColor library by its name, and `convert`."""
from ._convert import convert, formats, route
from ._functions import *  # noqa: F403
from ._functions import __all__ as _names
from ._library import LibraryVersion, TolkError, TolkWarning, tolkGetLibVersion, tolkReduceBitsGetBufferSize
from ._routes import Route
from ._table import VERSION as __version__
from ._table import functions

__all__ = ["LibraryVersion", "Route", "TolkError", "TolkWarning", "__version__", "convert", "formats", "functions",
           "route", "tolkGetLibVersion", "tolkReduceBitsGetBufferSize"]
__all__ += _names
