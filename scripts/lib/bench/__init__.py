"""What scripts/bench does once everything is built: run, count, compare, write the page and its pictures."""
