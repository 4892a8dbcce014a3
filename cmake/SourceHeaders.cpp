// Contains only the precompiled headers; see Lyrabox.cmake.
