# shellcheck shell=bash
# The points are single pixels: the middles of the panels, enlarged three times. A
# lattice drawn by hand does not meet itself across the borders.
detail 10-lattices-rectangular 1 85x85+86+86 3 10-lattices
detail 10-lattices-rectangular-spectrum 2 85x85+85+85 3 10-lattices
detail 10-lattices-oblique 4 85x85+86+86 3 10-lattices
detail 10-lattices-oblique-spectrum 5 85x85+85+85 3 10-lattices
row 10-lattices-drawn 1 10-lattices --menu mnuImg1b:1 --drag 1:30,30,53,37 --drag 1:100,100,37,67
