// Holds the place of a source: the library is made of the object library alone.
