#pragma once
// The two body regions a strength workout is kept for; each has its own pair of A and B databases.

enum class BodyRegion { Upper, Lower };
