"""Types of lists: what is taken, and what is returned where there is numpy. Where there is none
lists of float and int are returned, which who checks types does not see."""

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
    Reals = Words = RealArray = WordArray = Sequence[float]
    Integers = IntegerArray = Sequence[int]
