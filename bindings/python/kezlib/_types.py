"""Types of lists, for those who check types: what is taken, and what is returned where there is
numpy. Where there is none lists of float and int are returned."""

from typing import TYPE_CHECKING, Any, Sequence, Union

if TYPE_CHECKING:
    import numpy
    from numpy.typing import NDArray

    Reals = Union[Sequence[float], NDArray[Any]]
    Integers = Union[Sequence[int], NDArray[Any]]
    Words = Union[Reals, Integers]
    RealArray = NDArray[numpy.float32]
    IntegerArray = NDArray[numpy.int32]
    WordArray = NDArray[Any]
else:
    Reals = Integers = Words = RealArray = IntegerArray = WordArray = Any
