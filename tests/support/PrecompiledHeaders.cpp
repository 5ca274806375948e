// Nothing of its own: it is there for Qt's headers to be compiled for.
