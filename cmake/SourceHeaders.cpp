// Nothing but the precompiled headers that come with it; see Lyrabox.cmake.
