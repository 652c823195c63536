import sys

from kezsection.cli import main

if __name__ == "__main__":
    sys.exit(main())
