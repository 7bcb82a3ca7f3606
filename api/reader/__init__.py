"""Reads the public header and describes what it declares."""
