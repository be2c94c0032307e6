"""Finds, runs and understands the programs that convert."""
