# shellcheck shell=bash
# The factors and the product, then the middle of the three spectra enlarged, and
# a blur as it comes out.
row 11-convolution-motif 1 11-convolution
row 11-convolution-lattice 2 11-convolution
row 11-convolution-product 1 11-convolution --menu mnuImg1a:14 --intensity 1:0.3
detail 11-convolution-motif-spectrum 2 85x85+85+85 3 11-convolution
detail 11-convolution-lattice-spectrum 5 85x85+85+85 3 11-convolution
detail 11-convolution-product-spectrum 2 85x85+85+85 3 11-convolution --menu mnuImg1a:14 --intensity 1:0.2
row 11-convolution-rolled 1 11-convolution-blur
