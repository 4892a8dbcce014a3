"""Measures every row of the table in docs/performance.md against its peer. Run by scripts/bench."""
