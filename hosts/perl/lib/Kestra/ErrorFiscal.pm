# Una llamada que falló. Como texto, lo que se le muestra al operador.
package Kestra::ErrorFiscal;

use strict;
use warnings;
use overload '""' => sub { $_[0]{mensaje} }, fallback => 1;

sub new {
    my ($clase, %de) = @_;
    return bless {%de}, $clase;
}

sub llamada   { $_[0]{llamada} }
sub desenlace { $_[0]{desenlace} }    # KESTRA_DESENLACE_...: qué fue del pedido
sub causa     { $_[0]{causa} }        # KESTRA_CAUSA_...: por qué
sub mensaje   { $_[0]{mensaje} }

1;
