"""A host of the library: section values of steel girders and members."""
