-- Lo que las puertas de una cadena publican, tal como llegó, y tres vistas. Se puede ejecutar de nuevo sobre una base
-- que ya lo tiene: no borra nada.

-- Un renglón por suceso. La clave es del suceso y no se repite nunca: quien la recibe otra vez no hace nada.
create table if not exists sucesos (
  clave       text primary key,
  local       text not null,
  impresora   text not null,
  secuencia   bigint not null,
  tipo        text not null,
  momento     timestamptz not null,
  datos       jsonb not null,
  recibido    timestamptz not null default now(),
  -- Lo que las vistas preguntan, sacado una sola vez.
  comprobante text generated always as (datos -> 'comprobante' ->> 'tipo') stored,
  letra       text generated always as (datos -> 'comprobante' ->> 'letra') stored,
  numero      bigint generated always as ((datos -> 'comprobante' ->> 'numero')::bigint) stored,
  total       numeric(14, 2) generated always as ((datos -> 'comprobante' ->> 'total')::numeric) stored,
  informe     text generated always as (datos -> 'informe' ->> 'tipo') stored
);
create index if not exists sucesos_por_momento on sucesos (momento);
create index if not exists sucesos_por_impresora on sucesos (local, impresora, secuencia);
create index if not exists sucesos_por_numero on sucesos (local, impresora, comprobante, letra, numero)
  where tipo = 'documento';

-- Lo que llegó y no se entiende: para una persona, no para perderlo.
create table if not exists rechazados (
  recibido timestamptz not null default now(),
  tema     text not null,
  mensaje  bytea not null,
  motivo   text not null
);

-- El día de los locales, no el del servidor.
create or replace function comienzo_del_dia() returns timestamptz language sql stable as $$
  select date_trunc('day', now() at time zone 'America/Argentina/Buenos_Aires')
           at time zone 'America/Argentina/Buenos_Aires'
$$;

-- Vendido hoy por local: las notas de crédito restan, y lo que no es una venta no cuenta.
create or replace view vendido_hoy as
select local,
       count(*) as comprobantes,
       sum(case comprobante when 'nota_credito' then -total else total end) as total,
       max(momento) as ultimo
from sucesos
where tipo = 'documento'
  and comprobante in ('tique', 'factura', 'nota_debito', 'nota_credito')
  and momento >= comienzo_del_dia()
group by local;

-- Impresoras con comprobantes detrás de su último Z; `atrasada`, desde antes de hoy.
create or replace view locales_sin_z as
select d.local,
       d.impresora,
       z.ultimo_z,
       min(d.momento) as primer_comprobante,
       count(*) as comprobantes,
       min(d.momento) < comienzo_del_dia() as atrasada
from sucesos d
left join (
  select local, impresora, max(momento) as ultimo_z
  from sucesos
  where tipo = 'cierre'
  group by local, impresora
) z using (local, impresora)
where d.tipo = 'documento' and d.momento > coalesce(z.ultimo_z, '-infinity')
group by d.local, d.impresora, z.ultimo_z;

-- Números que faltan entre el primero y el último que se conocen de cada serie. Un comprobante cancelado gasta su número
-- y también aparece: lo explica el informe Z de ese día. De `(sucesos)` faltan mensajes, no papeles: están por llegar.
create or replace view huecos as
with series as (
  select local, impresora, comprobante as serie,
         case when comprobante = 'tique' then '' else letra end as letra, numero
  from sucesos
  where tipo = 'documento' and numero is not null
  union all
  select local, impresora, '(sucesos)', '', secuencia from sucesos
), vecinos as (
  select *, lead(numero) over (partition by local, impresora, serie, letra order by numero) as siguiente
  from series
)
select local, impresora, serie, letra, numero + 1 as desde, siguiente - 1 as hasta,
       siguiente - numero - 1 as faltan
from vecinos
where siguiente > numero + 1;
