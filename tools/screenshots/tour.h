#pragma once

#include "album.h"

/// Walks through every screen and state of the program and has the album take a picture of each.
/// Throws std::runtime_error where the program does not go along.
void tour(Album& album);
